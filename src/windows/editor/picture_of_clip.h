// Small pictures of clips, as pages of the editor ask for them.
#pragma once

#include <QImage>
#include <functional>

namespace kvo {

/// What a clip shows at its Mark-In; a null picture while it is not there, or where the clip has none. The
/// page is drawn again when one has come.
using PictureOfClip = std::function<QImage(int clipNo)>;

}  // namespace kvo
