#include "ui/pictures.h"

#include "base/guarded.h"
#include "base/paths.h"
#include "ui/dib_section.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>
#include <array>
#include <filesystem>

namespace kvo {
namespace {

namespace fs = std::filesystem;

constexpr int kMostMegabytes = 256;  // a pixel takes four bytes

struct SizeFolder {
  const char* name;
  double size;
};
constexpr std::array<SizeFolder, 4> kSizes = {{{"", 1}, {"1.25/", 1.25}, {"1.5/", 1.5}, {"2/", 2}}};

qint64 megabytesOf(QSize size) { return (qint64{4} * size.width() * size.height() + (1 << 20) - 1) >> 20; }

Outcome checkSize(QSize size) {
  if (megabytesOf(size) <= kMostMegabytes) return {};
  const auto text = QString("it is %1 x %2 pixels and would take %3 MB, where %4 are the limit");
  return Error{
      text.arg(size.width()).arg(size.height()).arg(megabytesOf(size)).arg(kMostMegabytes).toStdString()};
}

QSize atScale(JpegSize size, int scale) {
  return {jpegSide(size.width, scale), jpegSide(size.height, scale)};
}

// As small as still holds what is wanted; smaller where that is too much.
int scaleFor(JpegSize size, QSize wanted) {
  if (wanted.isEmpty()) return 1;
  int scale = 8;
  const auto isEnough = [&] {
    const auto got = atScale(size, scale);
    return got.width() >= wanted.width() && got.height() >= wanted.height();
  };
  while (scale > 1 && !isEnough()) scale /= 2;
  while (scale < 8 && !checkSize(atScale(size, scale))) scale *= 2;
  return scale;
}

Result<QImage> readJpeg(const Jpeg& jpeg, std::string_view file, QSize wanted) {
  const auto size = jpeg.size(file);
  if (!size) return size.error();
  const int scale = scaleFor(*size, wanted);
  if (const auto fits = checkSize(atScale(*size, scale)); !fits) return fits.error();
  cDIBSection surface;
  if (const auto done = loadJpeg(jpeg, surface, file, scale); !done) return done.error();
  return QImage(surface.DIBSectionBitsPtr().data(), surface.dib_width(), surface.dib_height(),
                static_cast<qsizetype>(surface.BytesPerScanLine()), QImage::Format_BGR888)
      .convertToFormat(QImage::Format_RGB32);
}

Result<QImage> readByQt(std::string_view file) {
  auto bytes = QByteArray::fromRawData(file.data(), static_cast<qsizetype>(file.size()));
  QBuffer buffer(&bytes);
  QImageReader reader(&buffer);
  QImageReader::setAllocationLimit(kMostMegabytes);
  if (const auto fits = checkSize(reader.size()); !fits) return fits.error();
  auto picture = reader.read();
  if (picture.isNull()) return Error{reader.errorString().toStdString()};
  if (const auto fits = checkSize(picture.size()); !fits) return fits.error();
  return picture;
}

}  // namespace

SizedPicture pictureFile(const std::string& path, double size) {
  const auto plain = nameInAnyCase(path);
  SizedPicture best{plain, 1};
  for (const auto& folder : kSizes) {
    if (best.size >= size) break;
    const auto file =
        nameInAnyCase(std::string(folderPart(plain)).append(folder.name).append(fileNamePart(plain)));
    std::error_code ignored;
    if (fs::exists(file, ignored)) best = {file, folder.size};
  }
  return best;
}

Result<QImage> loadPicture(const PictureReading& reading, const std::string& path, QSize stretchedTo) {
  const auto file = reading.files.read(path, kMostPictureFile);
  if (!file) return file.error();
  auto picture = guarded([&]() -> Result<QImage> {
    return file->starts_with("\xFF\xD8") ? readJpeg(reading.jpeg, *file, stretchedTo) : readByQt(*file);
  });
  if (!picture) return Error{"cannot show the picture " + path + ": " + picture.error().text};
  if (stretchedTo.isEmpty() || picture->size() == stretchedTo) return picture;
  return picture->scaled(stretchedTo, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage keyedPicture(const QImage& picture) {
  auto keyed = picture.convertToFormat(QImage::Format_ARGB32);
  if (!keyed.valid(1, 1)) return keyed;
  const QRgb key = keyed.pixel(1, 1);
  if (qAlpha(key) != 255) return keyed;
  for (int y = 0; y < keyed.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(keyed.scanLine(y));
    std::replace(row, row + keyed.width(), key, qRgba(0, 0, 0, 0));
  }
  return keyed;
}

}  // namespace kvo
