// The queue as a window shows it.
#pragma once

#include "render/queue/render_queue.h"
#include "render/render_state.h"

#include <vector>

namespace kvo {

std::vector<QueuedRow> queuedRows(const RenderQueue& queue);

}  // namespace kvo
