#include "pendant/app/keyrepeat.h"

#include <QX11Info>
#define explicit isExplicit // a member's name in this C header
#include <xcb/xkb.h>
#undef explicit

namespace welmo::pendant {

void repeatWithoutReleases()
{
    if (!QX11Info::isPlatformX11())
        return;
    constexpr uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    xcb_connection_t *server = QX11Info::connection();
    const auto request =
        xcb_xkb_per_client_flags(server, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
    xcb_discard_reply(server, request.sequence);
}

} // namespace welmo::pendant
