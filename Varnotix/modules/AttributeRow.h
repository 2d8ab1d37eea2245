/// What a row of a module or sequence class says, as data.
#pragma once

class CDcmAttributeSet;

/// What a row declares.
enum class ERow
{
    Attribute, ///< an attribute, with or without accessors
    Sequence,  ///< a contained sequence
    Macro      ///< a macro, whose attributes are part of the same item
};

/// A row of a class (see AttributeRows.h). The texts live as long as the object that returned the row.
struct SAttributeRow
{
    ERow kind;
    /// The accessor's name; empty without accessor.
    const char* name;
    /// The type of the accessor's value, such as "CWordArray" or "CDcmSopSequence"; empty without accessor.
    const char* type;
    /// The tag, in four hexadecimal digits each; empty for a macro.
    const char* group;
    const char* element;
    /// The member object of a sequence or macro; null for an attribute.
    const CDcmAttributeSet* member;
};
