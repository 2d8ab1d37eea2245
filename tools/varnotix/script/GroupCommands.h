/// The commands of a script that the library leaves to its caller.
#pragma once

#include "console/Report.h"

/// Checks the groups, flags and sizes in the script's commands, and reports each that has no effect.
/// @return true when all are valid.
bool CheckCommandArguments(const CDcmAttributeScript& script, const CString& name, const CReport& report);

/// Does what ANONYMIZE_GROUP, REMOVE_GROUP and REMOVE_EMPTY_GROUP ask for, in this order, and reports each change with
/// -v. Groups that are not numbers are skipped.
///
/// ANONYMIZE_GROUP writes the second argument of ANONYMIZE_55, or "ANONYMOUS", into every text of the group, at every
/// depth of its sequences; a text for which it is not a valid value, such as a date, is emptied. UIDs stay, and codes
/// (CS) unless they are identifying attributes.
void ApplyGroupCommands(const CDcmAttributeScript& script, CDcmElementSet& store, const CString& name,
                        const CReport& report);
