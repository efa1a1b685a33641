#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// What a user would find wrong at a glance in the layout of a form's dialog, in words: texts that are cut
/// off, controls that overlap or reach out of the dialog. Hidden controls take no part.
std::vector<std::string> layoutFaults(HWND dialog);
