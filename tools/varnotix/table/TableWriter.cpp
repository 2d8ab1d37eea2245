#include "table/TableWriter.h"

#include "console/StandardStreams.h"
#include "json/JsonText.h"

#include <algorithm>
#include <limits>

namespace
{

constexpr const char* kJsonFile = "file";
constexpr std::size_t kWidest = 60;

/// East Asian characters take two columns of a terminal.
std::size_t WidthOf(char32_t character)
{
    const bool isWide = (character >= 0x1100 && character <= 0x115F) || (character >= 0x2E80 && character <= 0xA4CF) ||
                        (character >= 0xAC00 && character <= 0xD7A3) || (character >= 0xF900 && character <= 0xFAFF) ||
                        (character >= 0xFF00 && character <= 0xFF60) || (character >= 0x20000 && character <= 0x3FFFD);
    return isWide ? 2 : 1;
}

/// A text for a terminal, in its columns. Control characters are shown as dots, so that no value can steer it.
struct SShown
{
    std::string text;
    std::size_t width = 0;
};

SShown ShownOf(std::string_view text, std::size_t widest)
{
    SShown shown;
    while (!text.empty())
    {
        char32_t character = 0;
        TakeUtf8(text, character);
        character = character < 0x20 || (character >= 0x7F && character < 0xA0) ? U'.' : character;
        const std::size_t width = WidthOf(character);
        if (shown.width + width >= widest && !text.empty())
        {
            constexpr char32_t kEllipsis = 0x2026;
            AppendUtf8(shown.text, kEllipsis);
            ++shown.width;
            break;
        }
        AppendUtf8(shown.text, character);
        shown.width += width;
    }
    return shown;
}

std::string PlainLine(const std::vector<std::string>& texts)
{
    std::string line;
    for (const std::string& text : texts)
    {
        line += text;
        std::replace_if(
            line.end() - static_cast<std::ptrdiff_t>(text.size()), line.end(),
            [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
        line += '\t';
    }
    line.back() = '\n';
    return line;
}

std::vector<std::string> TextsOf(const CTableRow& row)
{
    std::vector<std::string> texts(row.size());
    std::transform(row.begin(), row.end(), texts.begin(), [](const SCell& cell) { return cell.Text(); });
    return texts;
}

std::string CsvLine(const std::vector<std::string>& texts)
{
    std::string line;
    for (std::size_t i = 0; i < texts.size(); ++i)
    {
        line += i > 0 ? "," : "";
        if (texts[i].find_first_of(",\"\r\n") == std::string::npos)
        {
            line += texts[i];
            continue;
        }
        line += '"';
        for (const char c : texts[i])
        {
            line.append(c == '"' ? 2 : 1, c);
        }
        line += '"';
    }
    return line + "\r\n";
}

void AppendJsonCell(std::string& json, const SCell& cell)
{
    const bool isSingle = cell.values.size() == 1;
    const auto append = [&](const std::string& value)
    {
        if (value.empty())
        {
            json += "null";
        }
        else if (cell.areNumbers && value.front() != '"')
        {
            json += value;
        }
        else
        {
            AppendJsonString(json, value);
        }
    };
    if (cell.values.empty() || (isSingle && cell.values.front().empty()))
    {
        json += "null";
        return;
    }
    json += isSingle ? "" : "[";
    for (std::size_t i = 0; i < cell.values.size(); ++i)
    {
        json += i > 0 ? "," : "";
        append(cell.values[i]);
    }
    json += isSingle ? "" : "]";
}

} // namespace

CTableWriter::CLine CTableWriter::Titles() const
{
    CLine titles(m_columns.size());
    std::transform(m_columns.begin(), m_columns.end(), titles.begin(),
                   [](const SColumn& column) { return column.title; });
    return titles;
}

std::string CTableWriter::JsonLine(const CTableRow& row) const
{
    std::string json = "{";
    for (std::size_t i = 0; i < row.size(); ++i)
    {
        json += i > 0 ? "," : "";
        AppendJsonString(json, m_columns[i].IsFile() ? kJsonFile : m_columns[i].title);
        json += ':';
        AppendJsonCell(json, row[i]);
    }
    return json + "}\n";
}

void CTableWriter::Begin()
{
    if (m_form == ETableForm::Csv)
    {
        WriteStandardOutput(CsvLine(Titles()));
    }
}

void CTableWriter::Add(std::size_t number, const CTableRow& row, CConsole& console)
{
    if (m_form == ETableForm::Aligned)
    {
        CLine texts = TextsOf(row);
        const std::lock_guard lock(m_mutex);
        m_kept.emplace(number, std::move(texts));
        return;
    }
    console.Print(m_form == ETableForm::Csv     ? CsvLine(TextsOf(row))
                  : m_form == ETableForm::Plain ? PlainLine(TextsOf(row))
                                                : JsonLine(row));
}

/// Names of files are not cut.
std::size_t CTableWriter::WidestOf(std::size_t column) const
{
    return m_columns[column].IsFile() ? std::numeric_limits<std::size_t>::max() : kWidest;
}

void CTableWriter::Finish()
{
    if (m_kept.empty())
    {
        return;
    }
    const CLine titles = Titles();
    std::vector<std::size_t> widths(titles.size());
    const auto measure = [&](const CLine& line)
    {
        for (std::size_t i = 0; i < line.size(); ++i)
        {
            widths[i] = std::max(widths[i], ShownOf(line[i], WidestOf(i)).width);
        }
    };
    const auto print = [&](const CLine& line)
    {
        std::string text;
        for (std::size_t i = 0; i < line.size(); ++i)
        {
            const SShown shown = ShownOf(line[i], WidestOf(i));
            text += shown.text;
            text.append(widths[i] - shown.width + 2, ' ');
        }
        text.erase(text.find_last_not_of(' ') + 1);
        WriteStandardOutput(text + '\n');
    };
    measure(titles);
    for (const auto& [number, line] : m_kept)
    {
        measure(line);
    }
    print(titles);
    for (const auto& [number, line] : m_kept)
    {
        print(line);
    }
    FlushStandardOutput();
}
