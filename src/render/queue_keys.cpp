#include "render/queue_keys.h"

namespace kvo {
namespace {

// The word of the key that leads on, and what is told of it.
struct Words {
  const char* act;
  const char* tip;
};

Words wordsFor(const QueuedRow* row) {
  if (row != nullptr && row->canView) return {"View Movie", "Add the movie to the collection and play it"};
  const char* goOn = row != nullptr && row->hasFailed ? "Try Again" : "Go On";
  const bool isWhole = row != nullptr && row->isInOnePiece;
  if (row != nullptr && row->canGoOn)
    return {goOn, isWhole ? "It is made in one piece: begin anew" : "Go on from what is finished"};
  return {"Pause", isWhole ? "It is made in one piece: later it begins anew"
                           : "Keep what is finished, and let the next one begin"};
}

}  // namespace

const QueuedRow* chosenRow(const QueueState& state) {
  const auto row = static_cast<std::size_t>(state.row);
  return row < state.Lst_Queue.size() ? &state.Lst_Queue[row] : nullptr;
}

QueueKeys queueKeys(const QueueState& state) {
  const auto* row = chosenRow(state);
  const auto [act, tip] = wordsFor(row);
  QueueKeys keys{.act = act, .actTip = tip, .why = state.trouble};
  if (row == nullptr) return keys;
  keys.canAct = row->canPause || row->canGoOn || row->canView;
  keys.canRemove = true;
  keys.canGoUp = state.row > 0;
  keys.canGoDown = state.row + 1 < static_cast<int>(state.Lst_Queue.size());
  keys.hasMovie = row->canView;
  if (keys.why.empty()) keys.why = row->failure;
  return keys;
}

}  // namespace kvo
