Attribute VB_Name = "VeltroMacros"
Option Explicit

' Outlook runs these in the Word that edits a mail, by Application.Run. Each has Veltro ask its question over
' Word's window. The result is True where the mail must not leave; every other answer goes to the add-in in
' Outlook by ways of its own, because Run hands no changed argument back.
'
' No macro shows an error: where Veltro cannot ask, the mail leaves as it is.

Public Function vtEmptySubjectCheckWord(Item As Variant, Cancel As Variant) As Variant
    Dim Buttons As Object
    On Error Resume Next
    Set Buttons = NewButtons()
    If Buttons Is Nothing Then Exit Function
    vtEmptySubjectCheckWord = Buttons.EmptySubjectCheck(Item, Cancel)
End Function

Public Function vtDelayEmailSendingWord(Item As Variant, Cancel As Variant) As Variant
    Dim Buttons As Object
    On Error Resume Next
    Set Buttons = NewButtons()
    If Buttons Is Nothing Then Exit Function
    vtDelayEmailSendingWord = Buttons.DelayEmailSending(Item, Cancel)
End Function

Public Function vtAddEmail(Address As Variant, AccountInUse As Variant) As Variant
    Dim Buttons As Object
    On Error Resume Next
    Set Buttons = NewButtons()
    If Buttons Is Nothing Then Exit Function
    vtAddEmail = Buttons.AddEmailAddressToList(Address, AccountInUse)
End Function

Public Function vtPrefAcctExistsFalse(Mode As Variant, AccountInUse As Variant, Address As Variant, _
                                      Message As Variant) As Variant
    Dim Buttons As Object
    On Error Resume Next
    Set Buttons = NewButtons()
    If Buttons Is Nothing Then Exit Function
    vtPrefAcctExistsFalse = Buttons.PrefAcctExistsFalse(Mode, AccountInUse, Address, Message)
End Function

Public Function vtSelPostroute(AccountInUse As Variant, PreferredAccount As Variant, Address As Variant) As Variant
    Dim Buttons As Object
    On Error Resume Next
    Set Buttons = NewButtons()
    If Buttons Is Nothing Then Exit Function
    vtSelPostroute = Buttons.SelPostroute(AccountInUse, PreferredAccount, Address)
End Function
