/// The forms of values that are text of the default repertoire (PS3.5 table 6.2-1).
#pragma once

#include "Varnotix/Varnotix.h"

#include <string_view>

// Each checks a value, which is not empty, without the padding of its field. Empty when it has the form, otherwise what
// is wrong with it, to follow the value: "is not a date (YYYYMMDD)".

CString FaultOfTitle(std::string_view value);    ///< AE
CString FaultOfAge(std::string_view value);      ///< AS
CString FaultOfCode(std::string_view value);     ///< CS
CString FaultOfDate(std::string_view value);     ///< DA
CString FaultOfDecimal(std::string_view value);  ///< DS
CString FaultOfDateTime(std::string_view value); ///< DT
CString FaultOfInteger(std::string_view value);  ///< IS
CString FaultOfTime(std::string_view value);     ///< TM
CString FaultOfUid(std::string_view value);      ///< UI
CString FaultOfUri(std::string_view value);      ///< UR

/// True for a value that lacks the form of its VR but has the one of earlier versions, which readers must accept: dates
/// with points and times with colons.
bool IsOlderForm(std::string_view vr, std::string_view value);

/// The value in single quotation marks for a message: cut when it is long, dots instead of control characters.
CString Quoted(std::string_view value);
