#pragma once

#include <QTest>
#include <tuple>
#include <vector>

/// The values of a row, of whatever types, are one column of a test's data.
template<typename... Values>
struct QMetaTypeId<std::tuple<Values...>>
{
    enum { Defined = 1 };
    static int qt_metatype_id()
    {
        using Type = std::tuple<Values...>;
        // As Q_DECLARE_METATYPE does it: the pointer says that this is no other name of a type.
        static const int id =
            qRegisterMetaType<Type>(typeid(Type).name(), reinterpret_cast<Type *>(quintptr(-1)));
        return id;
    }
};

namespace testsupport {

/// A row of a test's data: its name, then the values.
template<typename... Values>
using Row = std::tuple<QByteArray, Values...>;

/// Adds rows to the data of a test; for its "_data" function.
template<typename... Values>
void addRows(const std::vector<Row<Values...>> &rows)
{
    QTest::addColumn<Row<Values...>>("row");
    for (const Row<Values...> &row : rows)
        QTest::newRow(std::get<0>(row)) << row;
}

/// The row that the test is run for, by the types that it was added with.
template<typename... Values>
const Row<Values...> &currentRow()
{
    const int type = qMetaTypeId<Row<Values...>>();
    return *static_cast<const Row<Values...> *>(QTest::qData("row", type));
}

} // namespace testsupport
