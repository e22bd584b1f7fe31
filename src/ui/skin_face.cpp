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
  face_ = QPixmap();
  static_cast<void>(outline_.load(outline_.path(), size));
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
  const bool isNew = !img_Strecher_.isNull() || face_.isNull() || path != path_;
  if (isNew) {
    if (!path.empty() && (img_Strecher_.isNull() || path != path_)) static_cast<void>(load(path));
    path_ = path;
    face_ = QPixmap(size_.device());
    face_.fill(toColour(token("ink1")));
    const int left = qRound(kSkinLeft * size_.scale());
    QPainter ground(&face_);
    ground.drawImage(left, 0, img_Strecher_);
    ground.drawImage(face_.width() + left, 0,
                     img_Strecher_.copy(img_Strecher_.width() + left, 0, -left, img_Strecher_.height())
                         .mirrored(true, false));
    ground.end();
    face_.setDevicePixelRatio(size_.pixelRatio);
    KillStrecher();
  }
  painter.drawPixmap(0, 0, face_);
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
