#pragma once

#include <QTest>
#include <tuple>
#include <vector>

/// Lets a tuple of values of any types be one column of a test's data.
template<typename... Values>
struct QMetaTypeId<std::tuple<Values...>>
{
    enum { Defined = 1 };
    static int qt_metatype_id()
    {
        using Type = std::tuple<Values...>;
        // As in Q_DECLARE_METATYPE, the pointer tells that this is the type's first name.
        static const int id =
            qRegisterMetaType<Type>(typeid(Type).name(), reinterpret_cast<Type *>(quintptr(-1)));
        return id;
    }
};

namespace testsupport {

/// A row of a test's data: its name and its values.
template<typename... Values>
using Row = std::tuple<QByteArray, Values...>;

/// Adds rows to the data of a test; called in its "_data" function.
template<typename... Values>
void addRows(const std::vector<Row<Values...>> &rows)
{
    QTest::addColumn<Row<Values...>>("row");
    for (const Row<Values...> &row : rows)
        QTest::newRow(std::get<0>(row)) << row;
}

/// The row that the test runs for; with the same types as in addRows().
template<typename... Values>
const Row<Values...> &currentRow()
{
    const int type = qMetaTypeId<Row<Values...>>();
    return *static_cast<const Row<Values...> *>(QTest::qData("row", type));
}

} // namespace testsupport
