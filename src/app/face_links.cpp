#include "app/face_links.h"

#include "core/telling/failures.h"
#include "program/start_up.h"

namespace kvo {

FaceLinks::FaceLinks(const Parts& parts)
    : parts_(parts),
      player_({parts.window.mode, parts.collection, parts.settings, parts.control, parts.graphs,
               parts.streams, parts.counts, parts.probe, parts.boxes, *this}),
      buttons_(parts.window.buttons, parts.window.mode, player_, parts.timers),
      display_({parts.window.mode, player_, buttons_, parts.timers, parts.settings, parts.collection,
                parts.desktop, parts.boxes, *this}) {}

void FaceLinks::takeInterfaceSize() {
  display_.takeInterfaceSize(parts_.window.face.interfaceSize, hasLargeText(parts_.desktop));
}

void FaceLinks::skins() { skins_->skins(true, true, parts_.settings.preferences().SkinPath, false); }

void FaceLinks::ShapeMe() { skins_->ShapeMe(); }

void FaceLinks::ShapePlain() { skins_->ShapePlain(); }

void FaceLinks::FadBorder(const std::string& caption) {
  skins_->FadBorder(caption, parts_.window.skin.LogoColor);
}

void FaceLinks::untickStayOnTop() { parts_.window.face.stayOnTop = false; }

}  // namespace kvo
