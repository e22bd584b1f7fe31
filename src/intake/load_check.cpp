#include "intake/load_check.h"

#include "base/paths.h"
#include "core/telling/messages.h"
#include "intake/refusals.h"

#include <exception>

namespace kvo {

GuardedLoad guardLoad(const LoadCheck& player, const std::string& file, const std::function<void()>& load,
                      MessageBoxes& boxes, ErrorLog& log) {
  try {
    load();
    return GuardedLoad::Done;
  } catch (const std::exception& thrown) {
    if (player.PlayerGetFileName() == file) {
      log.LogError(std::string(LoadResString(434)).append(fileNamePart(file)).append(" >>"));
      boxes.show(toldOfSpoiltPlayer());
      return GuardedLoad::Fatal;
    }
    log.LogError(thrown.what());
    boxes.show(refusedByCrash());
    return GuardedLoad::Refused;
  }
}

}  // namespace kvo
