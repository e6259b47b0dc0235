#include "link/session/requests.h"

#include <QDateTime>

using tessa::LinkRequest;
using welmo::controller::Request;

namespace welmo::links {

namespace {

Request::Kind kindOf(LinkRequest::Kind kind)
{
    switch (kind) {
    case LinkRequest::Kind::Get:
        return Request::Kind::Get;
    case LinkRequest::Kind::Set:
        return Request::Kind::Set;
    case LinkRequest::Kind::Watch:
        return Request::Kind::Watch;
    case LinkRequest::Kind::Command:
        break;
    }
    return Request::Kind::Command;
}

} // namespace

Request toController(const LinkRequest &request)
{
    return {kindOf(request.kind), request.path, request.key, request.payload};
}

QString timeOfDay()
{
    return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

} // namespace welmo::links
