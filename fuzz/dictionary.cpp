// Any bytes as "dictionary.txt". The loader runs on a table of its own: the registry would add to its lists at every
// load.

#include "Promise.h"
#include "Varnotix/registry/DataFiles.h"
#include "Varnotix/registry/DictionaryFile.h"
#include "Varnotix/registry/EntryTable.h"

#include <string>
#include <string_view>
#include <utility>

namespace
{

/// Loads the table from the text and gives it as text, a line an entry.
std::string Loaded(std::string_view text)
{
    CEntryTable table;
    std::size_t lines = 0;
    Varnotix::ReadDataLines(text,
                            [&](std::string_view line)
                            {
                                ++lines;
                                AddDictionaryLine(line, table);
                            });
    Promise(lines <= text.size(), "lines are no more than the file has bytes");
    Promise(static_cast<std::size_t>(table.GetCount()) <= lines, "a line makes one entry at most");
    std::string loaded;
    for (const CEntryTable::SItem& item : table.Items())
    {
        Promise(table.Find(item.key) == item.entry, "an entry is found by its key");
        loaded += DictionaryLine(item.key, *item.entry).View();
        loaded += '\n';
    }
    static_cast<void>(table.FindTag(0x0010, 0x0010));
    static_cast<void>(table.FindTag(0x6002, 0x0010));

    CEntryTable other;
    other.AddAll(table);
    Promise(other.GetCount() == table.GetCount(), "a table is added as a whole");
    return loaded;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string text = Loaded({reinterpret_cast<const char*>(data), size});
    // The text form loses blanks inside tags, comments as tags and repeating groups. Tags that lost a blank are cut
    // elsewhere at the next load, where another blank may get lost: so more than one load may take something away.
    for (bool first = true;; first = false)
    {
        std::string again = Loaded(text);
        if (again == text)
        {
            return 0;
        }
        Promise(first || again.size() < text.size(), "a dictionary loaded from its text differs only by what is lost");
        text = std::move(again);
    }
}
