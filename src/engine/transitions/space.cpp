#include "engine/transitions/space.h"

#include "engine/transitions/page_curl.h"
#include "engine/transitions/particles.h"
#include "engine/transitions/simple_3d.h"

namespace kvo::engine {

Result<PaintTransition> makeSpace(const Params& params, int width, int height) {
  if (params.word("internalname") == "particlesystem") return makeParticles(params, width, height);
  if (!params.word("pagecurla").empty()) return makePageCurl(params, width, height);
  return makeSimple3D(params, width, height);
}

}  // namespace kvo::engine
