#pragma once

#include <QTest>
#include <tuple>
#include <vector>

namespace testsupport {

/// A table of cases, the name of each in its first column, for a loop in a test function. A check
/// that fails ends the function; the row that it failed in is told.
template<typename... Columns>
class Rows
{
public:
    using Row = std::tuple<QByteArray, Columns...>;
    struct End
    { };
    class Walk
    {
    public:
        explicit Walk(const std::vector<Row> &rows)
            : m_row(rows.begin())
            , m_end(rows.end())
        { }
        ~Walk()
        {
            if (m_row != m_end && QTest::currentTestFailed())
                qInfo("failed in the row \"%s\"", std::get<0>(*m_row).constData());
        }
        const Row &operator*() const { return *m_row; }
        void operator++() { ++m_row; }
        bool operator!=(End) const { return m_row != m_end; }

    private:
        typename std::vector<Row>::const_iterator m_row;
        typename std::vector<Row>::const_iterator m_end;
    };

    Rows(std::initializer_list<Row> rows)
        : m_rows(rows)
    { }
    void add(const Row &row) { m_rows.push_back(row); }
    Walk begin() const { return Walk(m_rows); }
    End end() const { return {}; }

private:
    std::vector<Row> m_rows;
};

} // namespace testsupport
