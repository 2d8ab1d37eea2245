/// The structure of a script: which lines are elements, which are commands, and which sequences enclose them.
#pragma once

#include "Varnotix/asl/AslLine.h"
#include "Varnotix/platform/Arrays.h"

#include <optional>
#include <vector>

namespace Varnotix
{

/// Kinds of events.
enum class EAslEvent
{
    Element,       ///< An element line.
    SequenceBegin, ///< The line after that of a sequence opens it: what follows is one level deeper.
    SequenceEnd,   ///< "#SEQUENCE_END" of the innermost open sequence.
    MissingEnd,    ///< The script ends within the innermost open sequence; the line is the one that opened it.
    LostLine,      ///< A line that follows that of a sequence without opening it, and has no effect.
    StrayBegin,    ///< "#SEQUENCE_BEGIN" elsewhere; it has no effect.
    StrayEnd,      ///< "#SEQUENCE_END" outside every sequence; the last event.
    TooDeep,       ///< The line opens a sequence below CAslReader::kMaxDepth others; the last event.
    Header,        ///< A command line that documents hold for people, such as "#COUNT=7".
    Command        ///< Any other command line, known or not.
};

/// One event. The texts are views into the lines.
struct SAslEvent
{
    EAslEvent kind;
    int line = 0;            ///< Index of the line.
    SAslElement element{};   ///< Of an Element.
    bool isSequence = false; ///< Of an Element: its VR field is SQ, whatever the case and the dictionary say.
    bool isOpened = false;   ///< Of such a sequence: the next line opens it, and the next event is its SequenceBegin.
    SAslCommand command{};   ///< Of a Header or a Command.
};

/// Reads a script line by line without asking the dictionary. Empty lines and comments give no events. Every
/// SequenceBegin has its SequenceEnd or MissingEnd, unless TooDeep ends the reading.
class VARNOTIX_EXPORT CAslReader
{
public:
    /// How many sequences may enclose a line; the stream decoder has the same limit.
    static constexpr int kMaxDepth = 64;

    /// @param lines must outlive the reader and its events. Texts are taken up to their first zero byte.
    /// @param first where reading begins; an index outside the lines counts as the nearest end.
    explicit CAslReader(const CStringArray& lines, int first = 0);

    /// The next event; none at the end.
    std::optional<SAslEvent> Next();

    /// Index of the first line that was not read; after a StrayEnd that of its line.
    int Line() const { return m_line; }

    /// Makes reading go on at a line, which is not taken for one that could open a sequence: for callers that know an
    /// element to fill several lines.
    void GoOnAt(int line);

private:
    std::string_view TextOf(int line) const;
    SAslEvent ReadElement(int line, std::string_view text);
    SAslEvent ReadCommand(int line, std::string_view text);
    SAslEvent OpenSequence(int line);

    const CStringArray& m_lines;
    int m_line;
    std::vector<int> m_begins; ///< The lines that opened the open sequences.
    bool m_isAfterSequence = false;
    bool m_isEnded = false;
};

} // namespace Varnotix
