/// The rows from which module and sequence classes are made.
///
/// A class reads like the standard's own table of its attributes: one row per attribute, which gives the kind of value,
/// the accessor's name and the tag, each once.
///
///     class VARNOTIX_EXPORT CDcmSpecimenSequence : public CDcmSequence
///     {
///         DCM_SEQUENCE_CLASS(CDcmSpecimenSequence)
///         DCM_TEXT    (SpecimenIdentifier, "0040", "0551")
///         DCM_TEXT    (SlideIdentifier,    "0040", "06FA")
///         DCM_SEQUENCE(SpecimenType, CDcmCodeSequenceMacroEx, "0040", "059A")
///     };
///
/// One source file then holds IMPLEMENT_DCM_CLASS(CDcmSpecimenSequence, CDcmSequence).
///
/// The order of the rows is the order of declaration: attributes first, then sequences and macros. The elements are in
/// tag order. They make a shape that all objects of the class share; an object makes its elements from it on first
/// access. Each accessor finds its element by the number of its row. __COUNTER__ numbers the rows, so no other macro
/// between them may use it.
///
/// A row gives a getter without arguments, which returns a reference into the element's own value, and a setter. The
/// getter of an attribute that is missing, or whose VR holds another kind of value, returns a library-wide empty
/// value, which must not be written to. Such a setter changes nothing.
#pragma once

#include "Varnotix/modules/RowMacros.h"

/// First in the body of a module class: constructors, assignment and run-time class. A copy is complete before it
/// takes the other's values, so its sequences are bound to its own members.
#define DCM_MODULE(Class) DCM_ROWS_CLASS(Class)

/// First in the body of a sequence or macro class.
#define DCM_SEQUENCE_CLASS(Class) DCM_ROWS_CLASS(Class)

/// Beside DCM_MODULE, for a class that declares its rows in the virtual InitializeModule: calling it again destroys all
/// elements and declares the rows again.
#define DCM_INITIALIZE_MODULE() DCM_INITIALIZE_ROWS(InitializeModule, DestroyModule)

/// Beside DCM_SEQUENCE_CLASS, for a class that declares its rows in the virtual InitializeSequence.
#define DCM_INITIALIZE_SEQUENCE() DCM_INITIALIZE_ROWS(InitializeSequence, DestroySequence)

/// First in the body of a module class whose tags lie in one instance of a repeating group (PS3.5 section 7.6). Rows
/// then give DCM_GROUP for their group.
/// @param DefaultGroup the group of a default-constructed module, a text of four hexadecimal digits.
#define DCM_REPEATING_MODULE(Class, DefaultGroup) \
    DCM_ROWS_CLASS(Class) \
    explicit Class(const CString& group); \
    DCM_INITIALIZE_MODULE() \
    DCM_REPEATING_GROUP(DefaultGroup)

/// As DCM_REPEATING_MODULE, for a sequence class.
#define DCM_REPEATING_SEQUENCE(Class, DefaultGroup) \
    DCM_ROWS_CLASS(Class) \
    explicit Class(const CString& group); \
    DCM_INITIALIZE_SEQUENCE() \
    DCM_REPEATING_GROUP(DefaultGroup)

/// The group of a repeating module's rows.
#define DCM_GROUP m_dcmGroup

/// Single-valued text.
#define DCM_TEXT(Name, Group, Element) DCM_VALUE(Name, Group, Element, CString&, const CString&, CString)
/// Multi-valued text.
#define DCM_TEXT_LIST(Name, Group, Element) \
    DCM_VALUE(Name, Group, Element, CStringArray&, const CStringArray&, CStringArray)
/// US, one value. Also SS and AT, as unsigned words.
#define DCM_US(Name, Group, Element) DCM_VALUE(Name, Group, Element, unsigned short const&, unsigned short, WORD)
/// US with several values, and OW. Also SS and AT.
#define DCM_US_LIST(Name, Group, Element) DCM_VALUE(Name, Group, Element, CWordArray&, const CWordArray&, CWordArray)
/// UL, one value. Also SL, as its unsigned pattern.
#define DCM_UL(Name, Group, Element) DCM_VALUE(Name, Group, Element, DWORD const&, DWORD, DWORD)
/// UL with several values.
#define DCM_UL_LIST(Name, Group, Element) DCM_VALUE(Name, Group, Element, CUIntArray&, const CUIntArray&, CUIntArray)
/// FD, one value.
#define DCM_FD(Name, Group, Element) DCM_VALUE(Name, Group, Element, double const&, double, double)
/// FD with several values.
#define DCM_FD_LIST(Name, Group, Element) \
    DCM_VALUE(Name, Group, Element, CDoubleArray&, const CDoubleArray&, CDoubleArray)
/// FL with several values.
#define DCM_FL_LIST(Name, Group, Element) DCM_VALUE(Name, Group, Element, CFloatArray&, const CFloatArray&, CFloatArray)
/// OB.
#define DCM_BYTES(Name, Group, Element) DCM_VALUE(Name, Group, Element, CByteArray&, const CByteArray&, CByteArray)

/// Any attribute: what its getter returns, what its setter takes, and the type of the value in the element (see
/// AttributeAccess.h).
#define DCM_VALUE(Name, Group, Element, Result, Argument, Value) \
    DCM_VALUE_ROW(DCM_NEXT_ROW, Name, Group, Element, Result, Argument, Value)

/// An attribute without accessors; hosts reach it through the element set.
#define DCM_DECLARED(Group, Element) DCM_ATTRIBUTE_ROW(DCM_NEXT_ROW, "", "", Group, Element)

/// Text that can be set but not read by accessor.
#define DCM_TEXT_SETTER(Name, Group, Element) DCM_TEXT_SETTER_ROW(DCM_NEXT_ROW, Name, Group, Element)

/// Single-valued text with one more setter, which takes a list.
#define DCM_TEXT_AND_LIST_SETTER(Name, ListSetter, Group, Element) \
    DCM_TEXT_AND_LIST_SETTER_ROW(DCM_NEXT_ROW, Name, ListSetter, Group, Element)

/// US with several values, whose getter and setter have different names.
#define DCM_US_LIST_NAMES(Getter, Setter, Group, Element) \
    DCM_US_LIST_NAMES_ROW(DCM_NEXT_ROW, Getter, Setter, Group, Element)

/// A macro whose attributes are in this very item, not in a sequence of their own: a member object that shows them, and
/// a getter that returns it. They are declared after the rows' own attributes.
#define DCM_INCLUDE(Name, Class) DCM_INCLUDE_ROW(DCM_NEXT_ROW, Name, Class)

/// A contained sequence: a member object whose elements are the items of the SQ element, and a getter that returns it.
/// Further arguments go to the member's constructor.
#define DCM_SEQUENCE(Name, Class, Group, Element, ...) \
    DCM_SEQUENCE_ROW(DCM_NEXT_ROW, Name, Class, Group, Element, __VA_ARGS__)

/// A contained sequence whose own tags lie in the module's repeating group.
#define DCM_REPEATING_MEMBER(Name, Class, Element) DCM_REPEATING_MEMBER_ROW(DCM_NEXT_ROW, Name, Class, Element)

/// In one source file: defines a class whose rows its constructor declares.
#define IMPLEMENT_DCM_CLASS(Class, Base) \
    IMPLEMENT_DCM_ROWS(Class, Base) \
    Class::Class() \
    { \
        SRowWalker::Declare(*this); \
    }

/// In one source file: defines a class with DCM_INITIALIZE_MODULE or DCM_INITIALIZE_SEQUENCE.
#define IMPLEMENT_DCM_INITIALIZED_CLASS(Class, Base, Initialize) \
    IMPLEMENT_DCM_ROWS(Class, Base) \
    Class::Class() \
    { \
        Class::Initialize(); \
    } \
    void Class::DcmDeclareRows() \
    { \
        SRowWalker::Declare(*this); \
    }

/// In one source file: defines a class with DCM_REPEATING_MODULE or DCM_REPEATING_SEQUENCE.
#define IMPLEMENT_DCM_REPEATING_CLASS(Class, Base, Initialize) \
    IMPLEMENT_DCM_REPEATING_ROWS(Class, Base, Initialize) \
    Class::Class(const CString& group) : m_dcmGroup(group) \
    { \
        Class::Initialize(); \
    }

/// As IMPLEMENT_DCM_REPEATING_CLASS without the constructor from a group, for a class that judges its group.
#define IMPLEMENT_DCM_REPEATING_ROWS(Class, Base, Initialize) \
    IMPLEMENT_DCM_COMMON(Class, Base) \
    Class::Class() : Class(CString(DcmDefaultGroup())) {} \
    Class::Class(const Class& other) : Class(other.m_dcmGroup) \
    { \
        SRowWalker::Copy(*this, other); \
    } \
    Class& Class::operator=(const Class& other) \
    { \
        if (m_dcmGroup != other.m_dcmGroup) \
        { \
            m_dcmGroup = other.m_dcmGroup; \
            Class::Initialize(); \
        } \
        Base::operator=(other); \
        return *this; \
    } \
    void Class::DcmDeclareRows() \
    { \
        SRowWalker::Declare(*this); \
    }
