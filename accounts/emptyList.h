#pragma once

/// The text of a list without rows, to the letter. The columns are declared in the other order than their
/// ordinals say; it is the ordinals that count.
inline constexpr wchar_t emptyList[] =
    L"<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'\r\n"
    L"xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'\r\n"
    L"xmlns:rs='urn:schemas-microsoft-com:rowset'\r\n"
    L"xmlns:z='#RowsetSchema'>\r\n"
    L"<s:Schema id='RowsetSchema'>\r\n"
    L"<s:ElementType name='row' content='eltOnly' rs:updatable='true'>\r\n"
    L"<s:AttributeType name='strAccount' rs:number='2' rs:nullable='true' rs:maydefer='true' rs:write='true' "
    L"rs:basetable='tblEmailAddress'\r\n"
    L"rs:basecolumn='strAccount'>\r\n"
    L"<s:datatype dt:type='string' dt:maxLength='255'/>\r\n"
    L"</s:AttributeType>\r\n"
    L"<s:AttributeType name='strEmailAddress' rs:number='1' rs:nullable='true' rs:maydefer='true' "
    L"rs:write='true'\r\n"
    L"rs:basetable='tblEmailAddress' rs:basecolumn='strEmailAddress'>\r\n"
    L"<s:datatype dt:type='string' dt:maxLength='255'/>\r\n"
    L"</s:AttributeType>\r\n"
    L"<s:extends type='rs:rowbase'/>\r\n"
    L"</s:ElementType>\r\n"
    L"</s:Schema>\r\n"
    L"<rs:data>\r\n"
    L"</rs:data>\r\n"
    L"</xml>";
