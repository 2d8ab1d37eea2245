/// Commands of a script that edit an object by paths, for what element lines do not carry.
#pragma once

#include "edit/ObjectEdit.h"
#include "script/ScriptFault.h"

inline constexpr const char* kSetCommand = "SET";
inline constexpr const char* kRemoveCommand = "REMOVE";
inline constexpr const char* kElementCommand = "ELEMENT";
inline constexpr const char* kTransferSyntaxCommand = "TRANSFER_SYNTAX";

/// Follows "#REMOVE=PATH", "#SET=PATH:VR=VALUE" (UTF-8), "#ELEMENT=PATH=BASE64" and "#TRANSFER_SYNTAX=UID", in the
/// order of the lines. Values are not checked: a script states what an object has.
class CEditCommands
{
public:
    /// @param commands indices of command lines; those of other commands are left to the caller.
    CEditCommands(const CStringArray& lines, const std::vector<int>& commands, CDcmElementSet& store);

    /// When there are any, the object must not be used any more.
    const std::vector<SScriptFault>& Faults() const { return m_faults; }
    /// Indices of commands that are not among the four.
    const std::vector<int>& Others() const { return m_others; }
    /// How many of the four there are.
    int Count() const { return m_count; }
    /// The transfer syntax to write; empty: that of the input.
    const CString& TransferSyntax() const { return m_transferSyntax; }

private:
    bool Follow(const Varnotix::SAslCommand& command, CObjectEdit& edit);
    static CString PlaceElement(std::string_view argument, CObjectEdit& edit);

    std::vector<SScriptFault> m_faults;
    std::vector<int> m_others;
    int m_count = 0;
    CString m_transferSyntax;
    CString m_fault;
};

/// The argument of "#ELEMENT" after the path: a DICOM file that holds the element.
/// @param transferSyntax of its object; that of encapsulated pixel data.
CString ElementArgument(const CDcmElement& element, const CString& transferSyntax);
