/// What the rows of a module or sequence class (see AttributeRows.h) make of an object: its elements and the binding of
/// sequences to members.
#pragma once

#include "Varnotix/element/ElementShape.h"
#include "Varnotix/modules/AttributeRow.h"

#include <atomic>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

/// The number of a row within its class, from 0, as a type: each row is an overload for its number.
template <int NUMBER>
struct SRowNumber
{
};

/// The shapes of a class or of those of its objects that were constructed for the same tags: one, but for private
/// tags, which the dictionary learns with time. Objects refer to the shape that they were made with. Any thread may use
/// it.
class VARNOTIX_EXPORT CClassShapes
{
public:
    CClassShapes();
    ~CClassShapes();
    CClassShapes(const CClassShapes&) = delete;
    CClassShapes& operator=(const CClassShapes&) = delete;

    /// The shape for new objects; null when none is current.
    const CElementShape* Current()
    {
        const CElementShape* latest = m_latest.load(std::memory_order_acquire);
        return latest != nullptr && latest->IsCurrent() ? latest : Find();
    }
    /// Makes a shape of the rows, unless another thread has made a current one meanwhile.
    const CElementShape& Add(const std::vector<SAttributeRow>& rows);

private:
    const CElementShape* Find();
    const CElementShape* FindLocked();

    std::mutex m_lock;
    std::list<CElementShape> m_shapes;
    std::atomic<const CElementShape*> m_latest{nullptr};
};

/// The shapes of a class whose objects are constructed for several tags.
class VARNOTIX_EXPORT CVariantShapes
{
public:
    CVariantShapes();
    ~CVariantShapes();
    CVariantShapes(const CVariantShapes&) = delete;
    CVariantShapes& operator=(const CVariantShapes&) = delete;

    CClassShapes& Of(const std::string& variant);

private:
    std::mutex m_lock;
    std::map<std::string, CClassShapes> m_shapes;
};

/// Walks the rows of a class in their order. Friend of every class made of rows.
struct SRowWalker
{
    /// Gives the object the elements of its class and binds the sequences to its members.
    template <class CLASS>
    static void Declare(CLASS& object)
    {
        object.GetDcmElementSet().TakeShape(ShapeOf(object));
        Bind(object, std::make_integer_sequence<int, kSequences<CLASS>>());
    }

    /// What a copy constructor does. A copy of an object without elements has none, where an assignment keeps them.
    template <class CLASS>
    static void Copy(CLASS& object, const CLASS& other)
    {
        if (other.GetDcmElementSet().HoldsNothing())
        {
            object.DestroySet();
        }
        object = other;
    }

    /// Makes a macro's attributes a part of the object's own.
    template <class CLASS, class MACRO>
    static void Include(CLASS& object, MACRO& macro)
    {
        macro.IncludeIn(object);
    }

    /// The rows of a class as data.
    template <class CLASS>
    static std::vector<SAttributeRow> Rows(const CLASS& object)
    {
        return RowsOf(object, std::make_integer_sequence<int, kAttributes<CLASS>>(),
                      std::make_integer_sequence<int, kSequences<CLASS>>());
    }

private:
    template <class CLASS, int NUMBER>
    static constexpr bool kIsAttribute = requires(const CLASS& object)
    {
        object.DcmAttribute(SRowNumber<NUMBER>());
    };
    template <class CLASS, int NUMBER>
    static constexpr bool kIsSequence = requires(const CLASS& object)
    {
        object.DcmSequence(SRowNumber<NUMBER>());
    };

    template <class CLASS, int NUMBER = 0>
    static constexpr int CountAttributes()
    {
        if constexpr (kIsAttribute<CLASS, NUMBER>)
        {
            return CountAttributes<CLASS, NUMBER + 1>();
        }
        else
        {
            return NUMBER;
        }
    }
    template <class CLASS, int NUMBER>
    static constexpr int CountRows()
    {
        if constexpr (kIsSequence<CLASS, NUMBER>)
        {
            return CountRows<CLASS, NUMBER + 1>();
        }
        else
        {
            static_assert(!kIsAttribute<CLASS, NUMBER>, "rows of attributes come before those of sequences and macros");
            static_assert(!kIsAttribute<CLASS, NUMBER + 1> && !kIsSequence<CLASS, NUMBER + 1>,
                          "something between the rows uses __COUNTER__");
            return NUMBER;
        }
    }

    template <class CLASS>
    static constexpr int kAttributes = CountAttributes<CLASS>();
    /// Sequences and macros.
    template <class CLASS>
    static constexpr int kSequences = CountRows<CLASS, kAttributes<CLASS>>() - kAttributes<CLASS>;

    template <class CLASS, int... ATTRIBUTES, int... SEQUENCES>
    static std::vector<SAttributeRow> RowsOf(const CLASS& object, std::integer_sequence<int, ATTRIBUTES...>,
                                             std::integer_sequence<int, SEQUENCES...>)
    {
        return {object.DcmAttribute(SRowNumber<ATTRIBUTES>())...,
                object.DcmSequence(SRowNumber<kAttributes<CLASS> + SEQUENCES>())...};
    }

    template <class CLASS, int... SEQUENCES>
    static void Bind(CLASS& object, std::integer_sequence<int, SEQUENCES...>)
    {
        (object.DcmBind(SRowNumber<kAttributes<CLASS> + SEQUENCES>()), ...);
    }

    template <class CLASS>
    static const CElementShape& ShapeOf(const CLASS& object)
    {
        if constexpr (requires { object.DcmVariant(); })
        {
            static CVariantShapes shapes;
            return CurrentOf(shapes.Of(object.DcmVariant()), object);
        }
        else
        {
            static CClassShapes shapes;
            return CurrentOf(shapes, object);
        }
    }

    template <class CLASS>
    static const CElementShape& CurrentOf(CClassShapes& shapes, const CLASS& object)
    {
        const CElementShape* current = shapes.Current();
        return current != nullptr ? *current : shapes.Add(Rows(object));
    }
};
