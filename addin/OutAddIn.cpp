#include "addin/OutAddIn.h"

void OutAddIn::Initialise(const outlook::Application& application, const std::wstring& progId) {
    globals_.outlook = application;
    objOutlook_ = application;
    progId_ = progId;
    nameSpace_ = application.mapiNameSpace();
    initialised_ = true;
}

void OutAddIn::UnInitialise() {
    nameSpace_ = {};
    globals_.outlook = {};
    objOutlook_ = {};
    wrappers_.release();
    initialised_ = false;
}
