#pragma once

#include <string>
#include <vector>

#include "mail/Globals.h"
#include "platform/formLists.h"

namespace checks {

/// The recipients of a reply, to be chosen by ticking them.
class frmReplyMultRecipt : public forms::Form {
  public:
    /// Worded for a plain Reply to a mail with several recipients.
    frmReplyMultRecipt(const mail::Globals& globals, std::vector<forms::MarkedList::Row> rows);

    /// Switches to the wording for a Reply to All.
    void Set_ReplyToAll();

    bool confirmed() const { return confirmed_; }
    /// 1-based positions, ascending.
    std::vector<int> untickedPositions() const;

  private:
    void cmdAll_Click();
    void cmdNone_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    const mail::Globals& globals_;
    bool confirmed_ = false;

    forms::Picture ImageIcon{*this, L"ImageIcon", {7, 8, 21, 20}, forms::Picture::Image::Question};
    forms::Label lblLine1{
        *this,
        L"lblLine1",
        {36, 8, 257, 18},
        L"You clicked Reply (and not Reply to All) on an e-mail with more than one recipients."};
    forms::Label lblAbove{*this, L"lblAbove", {36, 28, 257, 9}};
    forms::CheckList lstRecipients{*this, L"lstRecipients", {7, 42, 286, 110}};
    forms::Label lblBelow{
        *this, L"lblBelow", {7, 157, 286, 9}, L"You can select more recipients by ticking the list above."};
    forms::Button cmdAll{*this, L"cmdAll", {7, 172, 56, 14}, L"Select &All"};
    forms::Button cmdNone{*this, L"cmdNone", {67, 172, 56, 14}, L"Select &None"};
    forms::Button cmdOK{*this, L"cmdOK", {189, 172, 50, 14}, L"OK", forms::Button::Role::Default};
    forms::Button cmdCancel{*this, L"cmdCancel", {243, 172, 50, 14}, L"&Cancel", forms::Button::Role::Cancel};
};

}  // namespace checks
