#pragma once

#include <QMap>
#include <functional>
#include <map>

#include "controller/core/request.h"

namespace welmo::controller {

/// Which subsystem answers which node and command. Subsystems register theirs once, at the start.
class Registry
{
public:
    static constexpr int usualSize = 16 * 1024;

    enum class Entries {
        Together, ///< parts of one value
        Apart ///< separate values, each notified and read without the others
    };

    using Read = std::function<Reply()>;
    using Write = std::function<Reply(const QVariant &value)>;
    using ReadEntry = std::function<Reply(const QString &key)>;
    using WriteEntry = std::function<Reply(const QString &key, const QVariant &value)>;
    using Run = std::function<Reply(const Request &request)>;

    /// A node with one value; the key of a read is a dotted path into it. Without @p write the node
    /// is read-only.
    void addValue(const QString &path, const Read &read, const Write &write = {});
    /// A node with entries, such as numbered files; a read without a key returns all of them.
    void addEntries(const QString &path, const ReadEntry &read, const WriteEntry &write,
                    Entries entries = Entries::Together);
    /// Sets the most bytes that a value written there may have as JSON; usualSize unless set.
    void setLargest(const QString &path, int bytes);
    void addCommand(const QString &path, const Run &run);

    /// Every node, with how its entries are to be kept; a node without entries has Together.
    QMap<QString, Entries> nodes() const;

    Reply dispatch(const Request &request) const;

private:
    struct Node
    {
        ReadEntry read;
        WriteEntry write;
        Entries entries = Entries::Together;
        int largest = usualSize;
    };

    Reply write(const Node &node, const Request &request) const;

    std::map<QString, Node> m_nodes;
    std::map<QString, Run> m_commands;
};

} // namespace welmo::controller
