/// The rows from which module and sequence classes are made.
///
/// A class reads like the standard's own table of its attributes: one row an attribute, which gives the kind of value,
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
/// The order of the rows is the order of declaration: attributes first, then sequences. The elements stand in tag
/// order. They make a shape that all objects of the class share; an object makes its elements from it when somebody
/// looks at them. Each accessor finds its element by its place in the declaration, which the row's line number stands
/// for: rows therefore keep to one line each, and a class to kMaxRowLines lines.
///
/// A row gives a getter without arguments, which returns a reference into the element's own value, and a setter. The
/// getter of an attribute that is missing, or whose VR holds another kind of value, returns a library-wide empty
/// value, which must not be written to. Such a setter changes nothing.
#pragma once

#include "Varnotix/modules/AttributeAccess.h"
#include "Varnotix/modules/RowWalker.h"

/// First in the body of a module class: constructors, assignment and run-time class. A copy is complete before it
/// takes the other's values, so its sequences are bound to its own members.
#define DCM_MODULE(Class) DCM_ROWS_CLASS(Class)

/// First in the body of a sequence or macro class.
#define DCM_SEQUENCE_CLASS(Class) DCM_ROWS_CLASS(Class)

/// Beside DCM_MODULE, for a class that declares its rows in the virtual InitializeModule: calling it again destroys all
/// elements and declares the rows anew.
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
#define DCM_TEXT(Name, Group, Element) DCM_VALUE(Name, Group, Element, CString&, const CString&, CTextAccess)
/// Multi-valued text.
#define DCM_TEXT_LIST(Name, Group, Element) \
    DCM_VALUE(Name, Group, Element, CStringArray&, const CStringArray&, CTextListAccess)
/// US, one value. Also SS and AT, as unsigned words.
#define DCM_US(Name, Group, Element) DCM_VALUE(Name, Group, Element, unsigned short const&, unsigned short, CWordAccess)
/// US with several values, and OW. Also SS and AT.
#define DCM_US_LIST(Name, Group, Element) \
    DCM_VALUE(Name, Group, Element, CWordArray&, const CWordArray&, CWordListAccess)
/// UL, one value. Also SL, as its unsigned pattern.
#define DCM_UL(Name, Group, Element) DCM_VALUE(Name, Group, Element, DWORD const&, DWORD, CIntegerAccess)
/// UL with several values.
#define DCM_UL_LIST(Name, Group, Element) \
    DCM_VALUE(Name, Group, Element, CUIntArray&, const CUIntArray&, CIntegerListAccess)
/// FD, one value.
#define DCM_FD(Name, Group, Element) DCM_VALUE(Name, Group, Element, double const&, double, CDoubleAccess)
/// FD with several values.
#define DCM_FD_LIST(Name, Group, Element) \
    DCM_VALUE(Name, Group, Element, CDoubleArray&, const CDoubleArray&, CDoubleListAccess)
/// FL with several values.
#define DCM_FL_LIST(Name, Group, Element) \
    DCM_VALUE(Name, Group, Element, CFloatArray&, const CFloatArray&, CFloatListAccess)
/// OB.
#define DCM_BYTES(Name, Group, Element) DCM_VALUE(Name, Group, Element, CByteArray&, const CByteArray&, CBytesAccess)

/// An attribute without accessors; hosts reach it through the element set.
#define DCM_DECLARED(Group, Element) \
    void DcmDeclareRow(SRowLine<__LINE__>, CElementShape& shape) \
    { \
        static_assert(__LINE__ - kDcmFirstLine < kMaxRowLines); \
        shape.Declare(Group, Element); \
    }

/// An attribute that can be read but not set under this name.
#define DCM_US_LIST_GETTER(Name, Group, Element) DCM_GETTER(Name, Group, Element, CWordArray&, CWordListAccess)

/// An attribute that can be set but not read by accessor.
#define DCM_TEXT_SETTER(Name, Group, Element) DCM_SETTER(Name, Group, Element, const CString&, CTextAccess)
#define DCM_TEXT_LIST_SETTER(Name, Group, Element) \
    DCM_SETTER(Name, Group, Element, const CStringArray&, CTextListAccess)

/// One more setter for the attribute of the row above, which this one does not declare again.
#define DCM_TEXT_LIST_SETTER_TOO(Name) DCM_SETTER_TOO(Name, const CStringArray&, CTextListAccess)
#define DCM_US_LIST_SETTER_TOO(Name) DCM_SETTER_TOO(Name, const CWordArray&, CWordListAccess)

/// A macro whose attributes stand in this very item, not in a sequence of their own: a member object that shows them,
/// and a getter that returns it. They are declared after the rows' own attributes.
#define DCM_INCLUDE(Name, Macro) \
    Macro& Name() \
    { \
        return m_dcm##Name; \
    } \
    void DcmAddRow(SRowLine<__LINE__>, CElementShape& shape) \
    { \
        SRowWalker::DeclareMacro(shape, m_dcm##Name); \
    } \
    void DcmBindRow(SRowLine<__LINE__>) \
    { \
        SRowWalker::Include(*this, m_dcm##Name); \
    } \
\
private: \
    static_assert(__LINE__ - kDcmFirstLine < kMaxRowLines); \
    Macro m_dcm##Name; \
\
public:

/// A contained sequence: a member object whose elements are the items of the SQ element, and a getter that returns it.
/// Further arguments go to the member's constructor.
#define DCM_SEQUENCE(Name, Sequence, Group, Element, ...) \
    Sequence& Name() \
    { \
        return m_dcm##Name; \
    } \
    void DcmAddRow(SRowLine<__LINE__>, CElementShape& shape) \
    { \
        shape.AddSequence(Group, Element); \
    } \
    void DcmBindRow(SRowLine<__LINE__>) \
    { \
        GetDcmElementSet().BindNext(m_dcm##Name.GetDcmElementSet()); \
    } \
\
private: \
    static_assert(__LINE__ - kDcmFirstLine < kMaxRowLines); \
    Sequence m_dcm##Name{__VA_ARGS__}; \
\
public:

/// A contained sequence whose own tags lie in the module's repeating group.
#define DCM_REPEATING_MEMBER(Name, Sequence, Element) \
    Sequence& Name() \
    { \
        return m_dcm##Name; \
    } \
    void DcmAddRow(SRowLine<__LINE__>, CElementShape& shape) \
    { \
        shape.AddSequence(DCM_GROUP, Element); \
    } \
    void DcmBindRow(SRowLine<__LINE__>) \
    { \
        /* The module may have been assigned another one's group since the member was made. */ \
        m_dcm##Name = Sequence(DCM_GROUP); \
        GetDcmElementSet().BindNext(m_dcm##Name.GetDcmElementSet()); \
    } \
\
private: \
    static_assert(__LINE__ - kDcmFirstLine < kMaxRowLines); \
    Sequence m_dcm##Name; \
\
public:

/// Any attribute: what its getter returns, what its setter takes, and the access that joins them to the element.
#define DCM_VALUE(Name, Group, Element, Result, Argument, Access) \
    Result Name() \
    { \
        return Access::Get(GetDcmElementSet(), DcmRowPosition(__LINE__)); \
    } \
    DCM_SETTER(Name, Group, Element, Argument, Access)

#define DCM_GETTER(Name, Group, Element, Result, Access) \
    Result Name() \
    { \
        return Access::Get(GetDcmElementSet(), DcmRowPosition(__LINE__)); \
    } \
    DCM_DECLARED(Group, Element)

#define DCM_SETTER(Name, Group, Element, Argument, Access) \
    void Name(Argument value) \
    { \
        Access::Set(GetDcmElementSet(), DcmRowPosition(__LINE__), value); \
    } \
    DCM_DECLARED(Group, Element)

#define DCM_SETTER_TOO(Name, Argument, Access) \
    void Name(Argument value) \
    { \
        Access::Set(GetDcmElementSet(), DcmRowPosition(__LINE__) - 2, value); \
    }

#define DCM_ROWS_CLASS(Class) \
    DECLARE_DYNCREATE(Class) \
\
public: \
    Class(); \
    Class(const Class& other); \
    ~Class() override; \
    Class& operator=(const Class& other); \
\
private: \
    friend struct SRowWalker; \
    static constexpr int kDcmFirstLine = __LINE__; \
    static int DcmRowPosition(int line); \
\
public:

#define DCM_REPEATING_GROUP(DefaultGroup) \
private: \
    static const char* DcmDefaultGroup() \
    { \
        return DefaultGroup; \
    } \
    std::string DcmVariant() const \
    { \
        return std::string(m_dcmGroup.View()); \
    } \
    CString m_dcmGroup = DcmDefaultGroup(); \
\
public:

#define DCM_INITIALIZE_ROWS(Initialize, Destroy) \
protected: \
    void Initialize() override \
    { \
        Destroy(); \
        DcmDeclareRows(); \
    } \
\
private: \
    void DcmDeclareRows(); \
\
public:

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

#define IMPLEMENT_DCM_ROWS(Class, Base) \
    IMPLEMENT_DCM_COMMON(Class, Base) \
    Class::Class(const Class& other) : Class() \
    { \
        SRowWalker::Copy(*this, other); \
    } \
    Class& Class::operator=(const Class& other) \
    { \
        Base::operator=(other); \
        return *this; \
    }

#define IMPLEMENT_DCM_COMMON(Class, Base) \
    IMPLEMENT_DYNCREATE(Class, Base) \
    Class::~Class() = default; \
    int Class::DcmRowPosition(int line) \
    { \
        return SRowWalker::PositionOf<Class>(line); \
    }
