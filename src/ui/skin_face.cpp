#include "ui/skin_face.h"

#include "base/paths.h"
#include "ui/kvo_but.h"
#include "ui/pictures.h"
#include "ui/theme.h"

#include <QPainter>
#include <filesystem>

namespace kvo {
namespace {

constexpr double kSkinLeft = -100.0 / 15;  // pixels at size 1

void setTriple(KVOBut& key, const std::string& buttonPath, const std::string& stem, double interfaceSize) {
  const auto picture = [&](const char* state) {
    return QString::fromStdString(withSeparator(buttonPath) + stem + state + ".bmp");
  };
  key.setPictures(picture("Nrm"), picture("HVR"), picture("DN"), interfaceSize);
}

}  // namespace

void SkinFace::resize(const FaceSize& size) {
  if (size == size_) return;
  size_ = size;
  KillStrecher();
  fits_ = false;
  if (const auto loaded = outline_.load(outline_.path(), size); !loaded) log_(loaded.error().text);
}

std::optional<std::string> SkinFace::find(const std::string& path) const {
  auto name = nameInAnyCase(path);
  std::error_code ignored;
  return std::filesystem::exists(name, ignored) ? std::optional(std::move(name)) : std::nullopt;
}

Outcome SkinFace::load(const std::string& path) {
  const bool isShipped = !shipped_.empty() && path.starts_with(withSeparator(shipped_));
  const auto file = isShipped ? pictureFile(path, size_.scale()).path : nameInAnyCase(path);
  auto picture = loadPicture(reading_, file, size_.device());
  if (!picture) return picture.error();
  img_Strecher_ = std::move(*picture);
  path_ = path;
  return {};
}

Outcome SkinFace::loadMask(const std::string& path) { return outline_.load(path, size_); }

void SkinFace::KillStrecher() { img_Strecher_ = QImage(); }

void SkinFace::PaintPicture(QPainter& painter, const std::string& path) {
  const bool isOther = face_.isNull() || path != path_;
  if (isOther || !fits_ || !img_Strecher_.isNull()) {
    if (!path.empty() && (img_Strecher_.isNull() || path != path_)) {
      if (const auto loaded = load(path); !loaded) log_(loaded.error().text);
    }
    path_ = path;
    if (img_Strecher_.isNull() && !isOther) {
      face_ = face_.scaled(size_.device(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    } else {
      paintGround();
    }
    face_.setDevicePixelRatio(size_.pixelRatio);
    fits_ = true;
    KillStrecher();
  }
  painter.drawPixmap(0, 0, face_);
}

void SkinFace::paintGround() {
  face_ = QPixmap(size_.device());
  face_.fill(toColour(token("ink1")));
  const int left = qRound(kSkinLeft * size_.scale());
  QPainter ground(&face_);
  ground.drawImage(left, 0, img_Strecher_);
  ground.drawImage(face_.width() + left, 0,
                   img_Strecher_.copy(img_Strecher_.width() + left, 0, -left, img_Strecher_.height())
                       .mirrored(true, false));
}

QColor colourOf(std::uint32_t colorRef) {
  constexpr std::uint32_t kByte = 0xFF;
  return {static_cast<int>(colorRef & kByte), static_cast<int>(colorRef >> 8U & kByte),
          static_cast<int>(colorRef >> 16U & kByte)};
}

void LoadPlayListImages(const std::array<KVOBut*, 5>& keys, const std::string& buttonPath,
                        double interfaceSize) {
  constexpr std::array kStems = {"Plst_UP", "Plst_DOWN", "Plst_ADD", "Plst_Cross", "Plst_SORT"};
  for (std::size_t i = 0; i < keys.size(); ++i) setTriple(*keys[i], buttonPath, kStems[i], interfaceSize);
}

}  // namespace kvo
