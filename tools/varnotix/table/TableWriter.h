/// Tables of attribute values.
#pragma once

#include "console/Console.h"
#include "table/Cell.h"
#include "table/Columns.h"

#include <map>
#include <mutex>

enum class ETableForm
{
    Aligned, ///< Columns as wide as their widest cells; long cells are cut.
    Csv,     ///< RFC 4180, with a line of titles.
    JsonLines,
    Plain ///< Without titles, with tabs between the values; their own line breaks and tabs are blanks.
};

/// A cell for each column.
using CTableRow = std::vector<SCell>;

/// Prints a table to standard output. Rows may come from several threads at a time.
class CTableWriter
{
public:
    CTableWriter(ETableForm form, const std::vector<SColumn>& columns) : m_form(form), m_columns(columns) {}

    /// Prints the titles, where the form has them first. Throws as WriteStandardOutput.
    void Begin();

    /// Prints a row on the console of its job; an aligned one is kept until the end.
    /// @param number of the row's input, which orders the kept ones.
    void Add(std::size_t number, const CTableRow& row, CConsole& console);

    /// Prints what was kept. Throws as WriteStandardOutput.
    void Finish();

private:
    using CLine = std::vector<std::string>;

    CLine Titles() const;
    std::string JsonLine(const CTableRow& row) const;
    std::size_t WidestOf(std::size_t column) const;

    ETableForm m_form;
    const std::vector<SColumn>& m_columns;
    std::mutex m_mutex;
    std::map<std::size_t, CLine> m_kept; // By number.
};
