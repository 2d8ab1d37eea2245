/// What the rows of a module or sequence class (see AttributeRows.h) make of an object: its elements, the binding of
/// sequences to members, and the place of each row's element.
#pragma once

#include "Varnotix/element/ElementShape.h"

#include <algorithm>
#include <list>
#include <map>
#include <string>
#include <utility>

/// Lines that a class may span from its first macro to its last row.
inline constexpr int kMaxRowLines = 160;

/// Names a row by its line, so that overloads tell rows apart.
template <int LINE>
struct SRowLine
{
};

/// Walks the rows of a class in their order. Friend of every class made of rows.
struct SRowWalker
{
    /// Gives the object the elements of its class and binds the sequences to its members.
    template <class CLASS>
    static void Declare(CLASS& object)
    {
        object.GetDcmElementSet().TakeShape(ShapeOf(object));
        Bind(object, std::make_integer_sequence<int, kMaxRowLines>());
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

    /// Declares the attributes of a macro.
    template <class MACRO>
    static void DeclareMacro(CElementShape& shape, MACRO& macro)
    {
        const CDcmElementSet& set = macro.GetDcmElementSet();
        for (int i = 0; i < set.DeclaredCount(); ++i)
        {
            shape.Declare(set.DeclaredTag(i));
        }
    }

    /// The place of the row at a line among the declared-tag texts (0, 2, 4, ...).
    template <class CLASS>
    static int PositionOf(int line)
    {
        static constexpr auto kPositions = Positions<CLASS>(std::make_integer_sequence<int, kMaxRowLines>());
        return kPositions.byLine[line - CLASS::kDcmFirstLine];
    }

private:
    struct SPositions
    {
        short byLine[kMaxRowLines];
    };

    template <class CLASS, int LINE>
    static constexpr bool kDeclares = requires(CLASS& object, CElementShape& shape)
    {
        object.DcmDeclareRow(SRowLine<LINE>(), shape);
    };
    template <class CLASS, int LINE>
    static constexpr bool kBinds = requires(CLASS& object)
    {
        object.DcmBindRow(SRowLine<LINE>());
    };

    template <class CLASS, int... OFFSETS>
    static constexpr SPositions Positions(std::integer_sequence<int, OFFSETS...>)
    {
        SPositions positions{};
        short next = 0;
        ((positions.byLine[OFFSETS] = next,
          next = static_cast<short>(next + (kDeclares<CLASS, CLASS::kDcmFirstLine + OFFSETS> ? 2 : 0))),
         ...);
        return positions;
    }

    /// The shapes of a class or of those of its objects that were constructed for the same tags: one, but for private
    /// tags, which the dictionary learns with time. Objects refer to the shape that they were made with.
    using CShapes = std::list<CElementShape>;

    template <class CLASS>
    static const CElementShape& ShapeOf(CLASS& object)
    {
        if constexpr (requires { object.DcmVariant(); })
        {
            static std::map<std::string, CShapes> shapes;
            return CurrentOf(shapes[object.DcmVariant()], object);
        }
        else
        {
            static CShapes shapes;
            return CurrentOf(shapes, object);
        }
    }

    template <class CLASS>
    static const CElementShape& CurrentOf(CShapes& shapes, CLASS& object)
    {
        const auto current =
            std::find_if(shapes.begin(), shapes.end(), [](const CElementShape& shape) { return shape.IsCurrent(); });
        return current != shapes.end() ? *current : shapes.emplace_back(MakeShape(object));
    }

    template <class CLASS>
    static CElementShape MakeShape(CLASS& object)
    {
        CElementShape shape;
        FillShape(object, shape, std::make_integer_sequence<int, kMaxRowLines>());
        return shape;
    }

    template <int LINE, class CLASS>
    static void DeclareLine(CLASS& object, CElementShape& shape)
    {
        if constexpr (kDeclares<CLASS, LINE>)
        {
            object.DcmDeclareRow(SRowLine<LINE>(), shape);
        }
    }

    template <int LINE, class CLASS>
    static void AddLine(CLASS& object, CElementShape& shape)
    {
        if constexpr (kBinds<CLASS, LINE>)
        {
            object.DcmAddRow(SRowLine<LINE>(), shape);
        }
    }

    template <int LINE, class CLASS>
    static void BindLine(CLASS& object)
    {
        if constexpr (kBinds<CLASS, LINE>)
        {
            object.DcmBindRow(SRowLine<LINE>());
        }
    }

    template <class CLASS, int... OFFSETS>
    static void FillShape(CLASS& object, CElementShape& shape, std::integer_sequence<int, OFFSETS...>)
    {
        (DeclareLine<CLASS::kDcmFirstLine + OFFSETS>(object, shape), ...);
        (AddLine<CLASS::kDcmFirstLine + OFFSETS>(object, shape), ...);
    }

    template <class CLASS, int... OFFSETS>
    static void Bind(CLASS& object, std::integer_sequence<int, OFFSETS...>)
    {
        (BindLine<CLASS::kDcmFirstLine + OFFSETS>(object), ...);
    }
};
