// Transitions in space: particles that fly away, and pictures that turn, roll, spin and curl. The parameter
// "InternalName" says which.
#include "engine/transitions/registry.h"

namespace kvo::engine {

MakeTransition makeParticles, makePageCurl, makeSimple3D;

namespace {

Result<PaintTransition> makeInSpace(const Params& params, int width, int height) {
  if (params.word("internalname") == "particlesystem") return makeParticles(params, width, height);
  if (!params.word("pagecurla").empty()) return makePageCurl(params, width, height);
  return makeSimple3D(params, width, height);
}

}  // namespace

const DrawnTransition transitions::ParticlesAnd3D{makeInSpace};

}  // namespace kvo::engine
