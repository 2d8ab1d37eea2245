/// Names and meanings of the values in a PDU.
#pragma once

#include "Varnotix/Varnotix.h"

CString NumberText(DWORD number);

/// "N bytes".
CString SizeText(int size);

/// The name of a code, and the code itself in hexadecimal.
CString CodeMeaning(int code, const char* text);

/// An AE title up to its first zero byte, in quotes, so that its blanks are visible.
CString TitleText(const CString& bytes);

/// The message control header of a data value (PS3.8 Annex E).
CString ControlMeaning(BYTE control);

/// The name of an item of an A-ASSOCIATE PDU (PS3.8 sections 9.3.2 and 9.3.3).
const char* ItemName(int type);

/// The name of a sub-item of a presentation context (PS3.8 tables 9-14, 9-15 and 9-19).
const char* ContextSubItemName(int type);

/// The name of a sub-item of the user information (PS3.8 Annex D and PS3.7 Annex D.3.3).
const char* UserSubItemName(int type);

/// The value of an application context or of a sub-item of a presentation context: the text, and its name in the UID
/// table.
CString NameMeaning(int type, const CString& bytes);
/// The value of a sub-item of the user information: its text, or its numbers in words.
CString UserDataMeaning(int type, const CString& bytes);
