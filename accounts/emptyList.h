#pragma once

namespace accounts {

/// The text of a list without rows, to the letter. The columns are declared in the other order than their
/// ordinals say; it is the ordinals that count.
inline constexpr wchar_t emptyList[] =
    L"<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'\r\n"
    L"xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'\r\nxmlns:rs='urn:schemas-microsoft-com:rowset'\r\n"
    L"xmlns:z='#RowsetSchema'>\r\n<s:Schema id='RowsetSchema'>\r\n<s:ElementType name='row' "
    L"content='eltOnly' rs:updatable='true'>\r\n<s:AttributeType name='strAccount' rs:number='2' "
    L"rs:nullable='true' rs:maydefer='true' rs:write='true' rs:basetable='tblEmailAddress'\r\n"
    L"rs:basecolumn='strAccount'>\r\n<s:datatype dt:type='string' dt:maxLength='255'/>\r\n</s:AttributeType>\r\n"
    L"<s:AttributeType name='strEmailAddress' rs:number='1' rs:nullable='true' rs:maydefer='true' "
    L"rs:write='true'\r\nrs:basetable='tblEmailAddress' rs:basecolumn='strEmailAddress'>\r\n<s:datatype "
    L"dt:type='string' dt:maxLength='255'/>\r\n</s:AttributeType>\r\n<s:extends type='rs:rowbase'/>\r\n"
    L"</s:ElementType>\r\n</s:Schema>\r\n<rs:data>\r\n</rs:data>\r\n</xml>";

}  // namespace accounts
