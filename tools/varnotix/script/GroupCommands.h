/// The commands of a script that the library leaves to its caller.
#pragma once

#include "console/Report.h"

/// True when every group, flag and size in the script's commands is a number that has an effect; a message names each
/// that is not.
bool HasGoodArguments(const CDcmAttributeScript& script, const CString& name, const CReport& report);

/// Does what ANONYMIZE_GROUP, REMOVE_GROUP and REMOVE_EMPTY_GROUP ask for, in this order, and tells each change with
/// -v. Groups that are no number are left out.
///
/// ANONYMIZE_GROUP writes the second argument of ANONYMIZE_55, or "ANONYMOUS", into every text of the group, at every
/// depth of its sequences; a text that is no value of the VR, a date for one, is emptied. UIDs stay, and codes (CS)
/// unless anonymisation knows them.
void ApplyGroupCommands(const CDcmAttributeScript& script, CDcmElementSet& store, const CString& name,
                        const CReport& report);
