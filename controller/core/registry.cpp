#include "controller/core/registry.h"

#include "controller/core/fields.h"
#include "controller/core/json.h"

namespace welmo::controller {

void Registry::addValue(const QString &path, const Read &read, const Write &write)
{
    const auto readChild = [read](const QString &key) {
        Reply reply = read();
        if (!key.isEmpty())
            reply.value = childAt(reply.value, key);
        return reply;
    };
    WriteEntry writeWhole;
    if (write) {
        writeWhole = [write](const QString &key, const QVariant &value) {
            if (!key.isEmpty())
                return Reply::refused(UnknownKey,
                                      key + QStringLiteral(": written as a whole only"));
            return write(value);
        };
    }
    m_nodes[path] = {readChild, writeWhole};
}

void Registry::addEntries(const QString &path, const ReadEntry &read, const WriteEntry &write,
                          Entries entries)
{
    m_nodes[path] = {read, write, entries};
}

void Registry::setLargest(const QString &path, int bytes)
{
    m_nodes[path].largest = bytes;
}

void Registry::addCommand(const QString &path, const Run &run)
{
    m_commands[path] = run;
}

QMap<QString, Registry::Entries> Registry::nodes() const
{
    QMap<QString, Entries> nodes;
    for (const auto &[path, node] : m_nodes)
        nodes.insert(path, node.entries);
    return nodes;
}

Reply Registry::dispatch(const Request &request) const
{
    if (request.kind == Request::Kind::Command) {
        const auto command = m_commands.find(request.path);
        return command == m_commands.end() ? Reply::refused(UnknownCommand, request.path)
                                           : command->second(request);
    }
    const auto node = m_nodes.find(request.path);
    if (node == m_nodes.end())
        return Reply::refused(UnknownNode, request.path);
    if (request.kind == Request::Kind::Set)
        return write(node->second, request);
    return node->second.read(request.key);
}

Reply Registry::write(const Node &node, const Request &request) const
{
    if (!node.write)
        return Reply::refused(ReadOnly, request.path);
    if (sizeOf(request.payload) > node.largest) {
        return Reply::refused(
            TooMuch, QStringLiteral("%1: more than %2 bytes").arg(request.path).arg(node.largest));
    }
    return node.write(request.key, request.payload);
}

} // namespace welmo::controller
