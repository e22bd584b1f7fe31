// What the card of a render asks when the user acts on it.
#pragma once

#include "render/render_state.h"

#include <functional>

namespace kvo {

/// What is done to the queue. None may be empty.
struct QueueActs {
  std::function<void(int row)> choose;  ///< of Lst_Queue
  std::function<void()> act;            ///< what the key of the chosen one says
  std::function<void()> remove;
  std::function<void(int place)> move;  ///< counted from 1
  std::function<void()> openFolder;     ///< of the chosen one's movie
  std::function<void()> clear = [] {};  ///< those that are done
};

/// None may be empty.
struct RenderActs {
  std::function<void(OutputKind kind)> chooseKind;
  std::function<void(int row)> chooseProfile;        ///< of Lst_WMVFormats
  std::function<void(bool on)> tickCodecDimensions;  ///< Chk_UseCodecOutputDimensions
  std::function<void(int row)> chooseMadeFor;        ///< of Lst_MadeFor
  std::function<void(int megabytes)> wishMegabytes;
  std::function<void(bool on)> tickHardware;  ///< Chk_Hardware
  std::function<void()> write;                ///< KVOBut_WriteMovie
  std::function<void()> addToQueue;           ///< KVOBut_AddToQueue
  QueueActs queue;
  std::function<void()> writePair;  ///< KVOBut_RenderNewPicInPic
  std::function<void()> abort;      ///< KVOBut_AbortRender
  std::function<void()> view;       ///< the movie of the report
  std::function<void()> leave;
};

}  // namespace kvo
