// The effects the engine can draw, by class id. Each is a file of its own, which defines its word of
// effects::, and a line in vocabulary/effect_list.inc.
#pragma once

#include "engine/document/params.h"
#include "media/picture.h"

#include <functional>
#include <span>
#include <string_view>

namespace kvo::engine {

/// When an effect is drawn.
struct EffectMoment {
  double time = 0;    ///< seconds since the start of the effect
  double length = 0;  ///< seconds that its clip is shown
};

/// A clip's picture as the effect makes it, or the same picture. Throws std::bad_alloc when memory is
/// short, as making a picture does.
using DrawEffect = std::function<media::Picture(const media::Picture& picture, const EffectMoment& moment)>;

/// Prepares an effect for pictures of one size.
using MakeEffect = DrawEffect(const Params& params, int width, int height);

/// Whether an effect differs from frame to frame though its parameters do not.
using Moves = bool(const Params& params);

inline bool always(const Params& /*params*/) { return true; }

/// What an effect's file tells of it.
struct DrawnEffect {
  MakeEffect* make;
  Moves* moves = nullptr;  ///< null: never
};

namespace effects {
#define KVO_EFFECT(word, name, clsid) extern const DrawnEffect word;
#include "vocabulary/effect_list.inc"
#undef KVO_EFFECT
}  // namespace effects

struct EffectKind {
  std::string_view name;  ///< its word, in plans and tests
  std::string_view clsid;
  const DrawnEffect& drawn;
};

/// All of them, each class id once.
std::span<const EffectKind> effectKinds();

/// Null for a class id that is not known.
const EffectKind* findEffect(std::string_view clsid);

}  // namespace kvo::engine
