// The queue as a window shows it.
#pragma once

#include "render/queue/render_queue.h"
#include "render/queue_state.h"

#include <vector>

namespace kvo {

std::vector<QueuedRow> queuedRows(const RenderQueue& queue);

/// `trouble` is why the queue can be read or written no more, empty else.
WorkGlance queueGlance(const RenderQueue& queue, const std::string& trouble);

}  // namespace kvo
