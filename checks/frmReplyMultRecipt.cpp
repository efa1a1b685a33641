#include "checks/frmReplyMultRecipt.h"

#include "settings/prompts.h"

namespace checks {

frmReplyMultRecipt::frmReplyMultRecipt(const mail::Globals& globals, std::vector<forms::MarkedList::Row> rows)
    : Form(L"frmReplyMultRecipt", prompts::titled(globals, L"Multiple recipients"), 300, 193),
      globals_(globals) {
    lstRecipients.setRows(std::move(rows));
    lblAbove.setVisible(false);
    cmdAll.onClick = [this] { cmdAll_Click(); };
    cmdNone.onClick = [this] { cmdNone_Click(); };
    cmdOK.onClick = [this] { cmdOK_Click(); };
    cmdCancel.onClick = [this] { cmdCancel_Click(); };
}

void frmReplyMultRecipt::Set_ReplyToAll() {
    setCaption(prompts::titled(globals_, L"Reply to All"));
    lblLine1.setCaption(L"Reply to All was clicked! Do you want to do a Reply to All to this e-mail?");
    lblAbove.setCaption(L"You can change the recipients for the e-mail using the list below.");
    lblAbove.setVisible(true);
    lblBelow.setVisible(false);
}

std::vector<int> frmReplyMultRecipt::untickedPositions() const {
    std::vector<int> positions;
    for (int position = 1; const forms::MarkedList::Row& row : lstRecipients.rows()) {
        if (!row.marked) {
            positions.push_back(position);
        }
        ++position;
    }
    return positions;
}

void frmReplyMultRecipt::cmdAll_Click() {
    lstRecipients.markAll(true);
}

void frmReplyMultRecipt::cmdNone_Click() {
    lstRecipients.markAll(false);
}

void frmReplyMultRecipt::cmdOK_Click() {
    confirmed_ = true;
    hide();
}

void frmReplyMultRecipt::cmdCancel_Click() {
    confirmed_ = false;
    hide();
}

}  // namespace checks
