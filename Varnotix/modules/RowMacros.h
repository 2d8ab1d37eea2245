/// The machinery of AttributeRows.h: what a row and a class of rows expand to.
///
/// A row is an overload of DcmAttribute or DcmSequence for its number. Accessors know the number as a constant, so they
/// cost no search for their position.
#pragma once

#include "Varnotix/modules/AttributeAccess.h"
#include "Varnotix/modules/RowWalker.h"

/// The number of the row that is being expanded. Passed on as an argument, it is expanded once for the whole row.
/// __LINE__ cannot replace it: it is not a constant under Visual C++'s edit and continue.
#define DCM_NEXT_ROW __COUNTER__ - kDcmFirstRow

#define DCM_ROWS_CLASS(Class) \
    DECLARE_DYNCREATE(Class) \
\
public: \
    Class(); \
    Class(const Class& other); \
    ~Class() override; \
    Class& operator=(const Class& other); \
    std::vector<SAttributeRow> AttributeRows() const override; \
\
private: \
    friend struct SRowWalker; \
    enum \
    { \
        kDcmFirstRow = __COUNTER__ + 1 \
    }; \
\
public:

#define DCM_ATTRIBUTE_ROW(Row, Name, Type, Group, Element) \
    SAttributeRow DcmAttribute(SRowNumber<Row>) const \
    { \
        return {ERow::Attribute, Name, Type, Group, Element, nullptr}; \
    }

#define DCM_GET(Row, Name, Result, Value) \
    Result Name() \
    { \
        return TAttributeAccess<Value>::Get(GetDcmElementSet(), 2 * (Row)); \
    }

#define DCM_SET(Row, Name, Argument, Value) \
    void Name(Argument value) \
    { \
        TAttributeAccess<Value>::Set(GetDcmElementSet(), 2 * (Row), value); \
    }

#define DCM_VALUE_ROW(Row, Name, Group, Element, Result, Argument, Value) \
    DCM_GET(Row, Name, Result, Value) \
    DCM_SET(Row, Name, Argument, Value) \
    DCM_ATTRIBUTE_ROW(Row, #Name, #Value, Group, Element)

#define DCM_TEXT_SETTER_ROW(Row, Name, Group, Element) \
    DCM_SET(Row, Name, const CString&, CString) \
    DCM_ATTRIBUTE_ROW(Row, #Name, "CString", Group, Element)

#define DCM_TEXT_AND_LIST_SETTER_ROW(Row, Name, ListSetter, Group, Element) \
    DCM_VALUE_ROW(Row, Name, Group, Element, CString&, const CString&, CString) \
    DCM_SET(Row, ListSetter, const CStringArray&, CStringArray)

#define DCM_US_LIST_NAMES_ROW(Row, Getter, Setter, Group, Element) \
    DCM_GET(Row, Getter, CWordArray&, CWordArray) \
    DCM_SET(Row, Setter, const CWordArray&, CWordArray) \
    DCM_ATTRIBUTE_ROW(Row, #Getter, "CWordArray", Group, Element)

/// A member object, its getter, and its row. Arguments for the member's constructor come last.
#define DCM_MEMBER_ROW(Row, Name, Class, Kind, Group, Element, ...) \
    Class& Name() \
    { \
        return m_dcm##Name; \
    } \
    SAttributeRow DcmSequence(SRowNumber<Row>) const \
    { \
        return {Kind, #Name, #Class, Group, Element, &m_dcm##Name}; \
    } \
\
private: \
    Class m_dcm##Name{__VA_ARGS__}; \
\
public:

#define DCM_INCLUDE_ROW(Row, Name, Class) \
    DCM_MEMBER_ROW(Row, Name, Class, ERow::Macro, "", "") \
    void DcmBind(SRowNumber<Row>) \
    { \
        SRowWalker::Include(*this, m_dcm##Name); \
    }

#define DCM_SEQUENCE_ROW(Row, Name, Class, Group, Element, ...) \
    DCM_MEMBER_ROW(Row, Name, Class, ERow::Sequence, Group, Element, __VA_ARGS__) \
    void DcmBind(SRowNumber<Row>) \
    { \
        GetDcmElementSet().BindNext(m_dcm##Name.GetDcmElementSet()); \
    }

#define DCM_REPEATING_MEMBER_ROW(Row, Name, Class, Element) \
    DCM_MEMBER_ROW(Row, Name, Class, ERow::Sequence, DCM_GROUP, Element) \
    void DcmBind(SRowNumber<Row>) \
    { \
        /* The module may have been assigned another one's group since the member was made. */ \
        m_dcm##Name = Class(DCM_GROUP); \
        GetDcmElementSet().BindNext(m_dcm##Name.GetDcmElementSet()); \
    }

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

/// Constructors, assignment and run-time class, without the constructors that declare the rows.
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
    std::vector<SAttributeRow> Class::AttributeRows() const \
    { \
        return SRowWalker::Rows(*this); \
    }
