#include "ui/compositing.h"

#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <string>
#include <xcb/xcb.h>

namespace kvo {
namespace {

template <class Reply>
using FreedReply = std::unique_ptr<Reply, decltype(&std::free)>;

template <class Reply>
FreedReply<Reply> freed(Reply* reply) {
  return {reply, &std::free};
}

}  // namespace

bool hasCompositor() {
  if (QGuiApplication::platformName() != "xcb") return true;  // only X11 does without
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr) return false;
  auto* const server = x11->connection();
  const std::string name = "_NET_WM_CM_S0";  // of whom the compositor of the first screen is the owner
  const auto atom = freed(xcb_intern_atom_reply(
      server, xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.c_str()), nullptr));
  if (!atom) return false;
  const auto owner =
      freed(xcb_get_selection_owner_reply(server, xcb_get_selection_owner(server, atom->atom), nullptr));
  return owner && owner->owner != XCB_NONE;
}

}  // namespace kvo
