// The small pictures of the window's parts, from files.
#pragma once

#include <QPixmap>
#include <string>

namespace kvo {

/// The picture of that file for size 1, or what lies beside it for this interface size, as large as that
/// size has it; null where there is none.
QPixmap partPicture(const std::string& path, double interfaceSize, double pixelRatio);

}  // namespace kvo
