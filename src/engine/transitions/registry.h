// The transitions the engine can draw, by class id. Each is a file of its own, which defines its word of
// transitions::, and a line in vocabulary/transition_list.inc.
#pragma once

#include "base/result.h"
#include "engine/document/params.h"
#include "media/picture.h"

#include <functional>
#include <span>
#include <string_view>

namespace kvo::engine {

/// How far a transition is.
struct Moment {
  double progress = 0;  ///< 0 to 1
  double time = 0;      ///< seconds since the start of the transition
};

/// Draws the mix of `below` and `above` into `out`: all of `below` at progress 0, all of `above` at 1. All
/// three are of one size and kind; `out` is neither of the others.
using PaintTransition = std::function<void(const media::Picture& below, const media::Picture& above,
                                           const Moment& moment, media::Canvas& out)>;

/// Prepares a transition for pictures of one size. Fails when a file that it needs cannot be read.
using MakeTransition = Result<PaintTransition>(const Params& params, int width, int height);

/// Whether a layer that is placed by its transition shows all of itself, and nothing of what lies below, at
/// `time`.
using CoversAll = bool(const Params& params, double time, int width, int height);

/// What a transition's file tells of it.
struct DrawnTransition {
  MakeTransition* make;
  CoversAll* coversAll = nullptr;  ///< of the kinds that last as long as their layer and have no progress
};

namespace transitions {
#define KVO_TRANSITION(word, name, clsid) extern const DrawnTransition word;
#include "vocabulary/transition_list.inc"
#undef KVO_TRANSITION
}  // namespace transitions

struct TransitionKind {
  std::string_view name;  ///< its word, in plans and tests
  std::string_view clsid;
  const DrawnTransition& drawn;
};

/// All of them, each class id once.
std::span<const TransitionKind> transitionKinds();

/// Null for a class id that is not known.
const TransitionKind* findTransition(std::string_view clsid);

/// The null element that stands for a plain cut.
bool isCutElement(std::string_view clsid);

}  // namespace kvo::engine
