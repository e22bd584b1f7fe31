// The port by which a window draws the picture of the engine that is in front: the file that was opened last
// by either engine. All on the program's thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace kvo {

class VideoOutput {
 public:
  /// An OpenGL that pictures are drawn with, until useSoftware() or that of another.
  struct OpenGl {
    /// Makes its context the current one of this thread.
    std::function<void()> makeCurrent;
    /// A function of OpenGL by its name; null for one that there is not.
    std::function<void*(const char*)> function;
  };
  /// Where a picture is drawn without OpenGL: rows from the top down, a pixel is blue, green, red and a byte
  /// of no meaning. Multiples of 64 are fastest for `first` and `stride`.
  struct Rows {
    std::uint8_t* first = nullptr;
    int width = 0;  ///< pixels
    int height = 0;
    std::size_t stride = 0;  ///< bytes from row to row
  };

  VideoOutput() = default;
  VideoOutput(const VideoOutput&) = delete;
  VideoOutput& operator=(const VideoOutput&) = delete;
  virtual ~VideoOutput() = default;

  /// From now on pictures are drawn with this OpenGL. False when it cannot be used for that, and then all is
  /// as before. What is open goes on.
  virtual bool useOpenGl(OpenGl gl) = 0;
  /// From now on pictures are drawn into rows, as it is at first.
  virtual void useSoftware() = 0;

  /// There is a file in front, and its picture to be drawn.
  [[nodiscard]] virtual bool hasPicture() const = 0;
  /// Draws the picture fitted into the frame buffer object `buffer` of OpenGL, whose first row is the lowest,
  /// its shape kept, on black; the context has to be current. Draws nothing without a picture.
  virtual void draw(int buffer, int width, int height) = 0;
  /// As above, into rows.
  virtual void draw(const Rows& rows) = 0;

  /// Heard on the program's thread when another picture, or none, is to be drawn. True when whoever hears it
  /// is going to draw; else the picture is passed over.
  virtual void whenPictureDue(std::function<bool()> heard) = 0;
};

}  // namespace kvo
