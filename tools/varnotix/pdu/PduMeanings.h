/// What the values in a PDU mean, in words.
#pragma once

#include "Varnotix/Varnotix.h"

CString NumberText(DWORD number);

/// "N bytes".
CString SizeText(int size);

/// The word for a code, and the code itself in hexadecimal.
CString CodeMeaning(int code, const char* text);

/// An AE title up to its first zero byte, in quotes, so that its blanks can be seen.
CString TitleText(const CString& bytes);

/// The message control header of a data value (PS3.8 Annex E).
CString ControlMeaning(BYTE control);

/// Sub-items of presentation contexts (PS3.8 tables 9-14, 9-15 and 9-19).
const char* ContextSubItemName(int type);

/// Sub-items of the user information (PS3.8 Annex D and PS3.7 Annex D.3.3).
const char* UserSubItemName(int type);

// The value of a sub-item of the type.

/// Of application and presentation contexts: text, and what the UID table calls it.
CString NameMeaning(int type, const CString& bytes);
/// Of user information: text, or what the numbers say.
CString UserDataMeaning(int type, const CString& bytes);
