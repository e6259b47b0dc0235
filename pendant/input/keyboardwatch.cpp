#include "pendant/input/keyboardwatch.h"

#include <QCoreApplication>
#include <QX11Info>
#include <cstdlib>
#include <memory>
#define explicit isExplicit // a member's name in this C header
#include <xcb/xkb.h>
#undef explicit

namespace welmo::pendant {

namespace {

constexpr int eventBits = 0x7f; // the bit above marks events sent by other clients

struct Free
{
    void operator()(void *reply) const { std::free(reply); }
};
template<typename Reply>
using Answer = std::unique_ptr<Reply, Free>;

// The first fields of every event of the XKB extension.
struct XkbEvent
{
    uint8_t responseType;
    uint8_t xkbType;
};

bool changesGroup(const void *event)
{
    constexpr int group = XCB_XKB_STATE_PART_GROUP_STATE | XCB_XKB_STATE_PART_GROUP_BASE
        | XCB_XKB_STATE_PART_GROUP_LATCH | XCB_XKB_STATE_PART_GROUP_LOCK;
    return static_cast<const xcb_xkb_state_notify_event_t *>(event)->changed & group;
}

bool changesMeanings(const void *event)
{
    switch (static_cast<const XkbEvent *>(event)->xkbType) {
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY:
        return true;
    case XCB_XKB_STATE_NOTIFY:
        return changesGroup(event);
    default:
        return false;
    }
}

} // namespace

KeyboardWatch::KeyboardWatch(QObject *parent)
    : QObject(parent)
{
    if (!QX11Info::isPlatformX11())
        return;
    m_releasesAreTrue = repeatWithoutReleases();
    const auto *xkb = xcb_get_extension_data(QX11Info::connection(), &xcb_xkb_id);
    if (xkb && xkb->present)
        m_firstXkbEvent = xkb->first_event;
    QCoreApplication::instance()->installNativeEventFilter(this);
}

bool KeyboardWatch::repeatWithoutReleases()
{
    xcb_connection_t *server = QX11Info::connection();
    constexpr uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const Answer<xcb_xkb_per_client_flags_reply_t> reply(xcb_xkb_per_client_flags_reply(
        server, xcb_xkb_per_client_flags(server, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0),
        nullptr));
    return reply && (reply->value & flag) != 0;
}

// Reports the keys that are up now: they may have come up while another client had the keyboard.
void KeyboardWatch::tellReleased()
{
    xcb_connection_t *server = QX11Info::connection();
    const Answer<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(server, xcb_query_keymap(server), nullptr));
    for (int code = 0; reply && code < 8 * int(sizeof reply->keys); ++code) {
        if ((reply->keys[code / 8] >> code % 8 & 1) == 0)
            emit released(code);
    }
}

bool KeyboardWatch::isDisturbance(const void *event) const
{
    const int type = static_cast<const xcb_generic_event_t *>(event)->response_type & eventBits;
    if (type == XCB_FOCUS_OUT)
        return static_cast<const xcb_focus_out_event_t *>(event)->detail
            != XCB_NOTIFY_DETAIL_POINTER;
    return type == XCB_MAPPING_NOTIFY || (type == m_firstXkbEvent && changesMeanings(event));
}

bool KeyboardWatch::nativeEventFilter(const QByteArray &type, void *message, long *)
{
    if (type != "xcb_generic_event_t")
        return false;
    if (isDisturbance(message))
        emit disturbed();
    const auto *event = static_cast<const xcb_key_release_event_t *>(message);
    switch (event->response_type & eventBits) {
    case XCB_KEY_RELEASE:
        if (m_releasesAreTrue)
            emit released(event->detail);
        break;
    case XCB_FOCUS_IN:
        tellReleased();
        break;
    default:
        break;
    }
    return false;
}

} // namespace welmo::pendant
