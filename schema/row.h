#pragma once

#include "schema/choices.h"
#include "schema/set.h"
#include "schema/unit.h"

namespace welmo::schema {

/// The smallest and largest value of a number, both included.
struct Range
{
    double minimum;
    double maximum;
};

/// The type in which a value is stored.
enum class Stored { Text, Boolean, Integer, Real, Integers };

/// One value of a set, declared once as a member of its set. The kind of the row decides which kind
/// of control a form can bind to it.
class Row
{
public:
    virtual ~Row() = default;
    Q_DISABLE_COPY(Row)

    /// Below the file or set; a dotted key is a child of a child.
    const char *const key;
    const Stored stored;
    /// For a number: the range that the package offers. The controller accepts more.
    const Range range;
    const Unit unit;

    /// The value in a new file, and of a missing key. It is written to a new file in its own type,
    /// often an int where a save stores a real number.
    virtual QVariant defaultValue() const { return m_default; }
    /// A second key that holds the same value, or null.
    virtual const char *twinKey() const { return nullptr; }
    /// False for a value that forms neither show nor save.
    virtual bool isEdited() const { return true; }

protected:
    Row(Set &set, const char *rowKey, Stored type, const QVariant &defaultValue, Range limits = {},
        Unit rowUnit = Unit::None);

private:
    QVariant m_default;
};

/// The file's own name: the file combo box chooses it, so it is stored but not shown.
struct FileNameRow : Row
{
    explicit FileNameRow(Set &set)
        : Row(set, "name", Stored::Text, QStringLiteral("default"))
    { }
};

/// Free text, empty by default.
struct TextRow : Row
{
    TextRow(Set &set, const char *rowKey)
        : Row(set, rowKey, Stored::Text, QString())
    { }
};

/// A keyword or a bool out of a table.
struct ChoiceRow : Row
{
    ChoiceRow(Set &set, const char *rowKey, const ChoiceTable &offered, const char *defaultCode)
        : Row(set, rowKey, Stored::Text, QString::fromLatin1(defaultCode))
        , table(offered)
    { }
    ChoiceRow(Set &set, const char *rowKey, const ChoiceTable &offered, bool defaultState)
        : Row(set, rowKey, Stored::Boolean, defaultState)
        , table(offered)
    { }
    const ChoiceTable &table;
};

/// A bool that an on/off button shows, false by default.
struct SwitchRow : Row
{
    SwitchRow(Set &set, const char *rowKey)
        : Row(set, rowKey, Stored::Boolean, false)
    { }
};

struct IntegerRow : Row
{
    IntegerRow(Set &set, const char *rowKey, int defaultValue, Range limits,
               Unit rowUnit = Unit::None)
        : Row(set, rowKey, Stored::Integer, defaultValue, limits, rowUnit)
    { }
};

/// Three integers that the file holds as one list.
struct IntegersRow : Row
{
    static constexpr int count = 3;
    IntegersRow(Set &set, const char *rowKey, Range limits, Unit rowUnit)
        : Row(set, rowKey, Stored::Integers, QVariantList{0, 0, 0}, limits, rowUnit)
    { }
};

/// Marks a row whose stored fraction is dropped when it is shown.
struct ReadAsInteger
{ };
inline constexpr ReadAsInteger readAsInteger{};
/// Marks a row whose number is also written to a second key; the first one is shown.
struct AlsoStoredAs
{
    const char *key;
};

struct RealRow : Row
{
    RealRow(Set &set, const char *rowKey, const QVariant &defaultValue, Range limits, Unit rowUnit)
        : Row(set, rowKey, Stored::Real, defaultValue, limits, rowUnit)
    { }
    RealRow(Set &set, const char *rowKey, const QVariant &defaultValue, Range limits, Unit rowUnit,
            ReadAsInteger)
        : Row(set, rowKey, Stored::Real, defaultValue, limits, rowUnit)
        , isReadAsInteger(true)
    { }
    RealRow(Set &set, const char *rowKey, const QVariant &defaultValue, Range limits, Unit rowUnit,
            AlsoStoredAs twin)
        : Row(set, rowKey, Stored::Real, defaultValue, limits, rowUnit)
        , m_twinKey(twin.key)
    { }
    const char *twinKey() const override { return m_twinKey; }

    const bool isReadAsInteger = false;

private:
    const char *m_twinKey = nullptr;
};

/// One of the names that exist at the moment (speeds), stored as its text.
struct NameRow : Row
{
    NameRow(Set &set, const char *rowKey, const QString &defaultName)
        : Row(set, rowKey, Stored::Text, defaultName)
    { }
};

/// "No signal" as a source text, translated in the context "Inputs".
extern const char *const noSignalSource;

/// The name of an input. "No signal" is stored as its translation, as the controllers in the field
/// expect: the one stored text that depends on the language.
struct InputRow : NameRow
{
    InputRow(Set &set, const char *rowKey)
        : NameRow(set, rowKey, {})
    { }
    QVariant defaultValue() const override;
};

/// A value that only the default file sets: forms neither show nor save it.
struct DefaultOnlyRow : Row
{
    DefaultOnlyRow(Set &set, const char *rowKey, bool defaultValue)
        : Row(set, rowKey, Stored::Boolean, defaultValue)
    { }
    bool isEdited() const override { return false; }
};

} // namespace welmo::schema
