// What a render asks of the windows about it.
#pragma once

#include "base/result.h"

#include <string>

namespace kvo {

class RenderHost {
 public:
  RenderHost() = default;
  RenderHost(const RenderHost&) = delete;
  RenderHost& operator=(const RenderHost&) = delete;
  virtual ~RenderHost() = default;

  /// Of the main window: stops what plays; takes its pictures off; keeps the folder that was read last;
  /// adds the movie to the collection and shows it.
  virtual void PlayerStop() = 0;
  virtual void ImagesOff() = 0;
  virtual void UpdLastRead() = 0;
  virtual void AddMoviesm(const std::string& path) = 0;

  /// Of the editor: its controls while a movie is made; the settings of its stills brought into the clips;
  /// its preview ended; its tabs built anew; the files that it leaves beside the program deleted.
  virtual void DisabEditControls(bool disabled) = 0;
  virtual void ApplyStillSettings() = 0;
  virtual void KillPreview() = 0;
  virtual void Buildtabs() = 0;
  virtual void deleteWorkFiles() = 0;

  /// Writes the sound of `source` as `wav`, in one durable step.
  virtual Outcome StripWavFromCurrentVideo(const std::string& source, const std::string& wav) = 0;

  /// RenderState has changed.
  virtual void renderChanged() = 0;
};

}  // namespace kvo
