#include "core/messages.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace kvo {
namespace {

struct Message {
  int number;
  std::string_view text;
};

constexpr std::array kMessages = {
    Message{117, "Failed to read the initialisation data - Close any other programs you may have open "},
    Message{118, "and try again. KVO requires that the INI file shipped with the product"},
    Message{119, " MUST be located in the same directory the program was installed in."},
    Message{120, " Please re-install KVO. If you still experience difficulty, "},
    Message{121, "<<ERR006>> - KVO Initialisation Failure "},
    Message{122, "The Initialisation data is corrupt. "},
    Message{124, "<<ERR0008>> - Default Initialisation Failure "},
    Message{172, "Corrupt Movie Descriptions. "},
    Message{173, "Corrupt Descriptions Failure "},
    Message{174, "<<ERR035>> - Corrupt Looping Failure "},
    Message{175, "Corrupt Display Descriptions. "},
    Message{177, "<<ERR038>> - Read GetSection Failure "},
    Message{188, "KVO Cannot write your preferences to Disk ! The Disk or file may be Write Protected."},
    Message{339, "This is not a valid KVO Collection File"},
    Message{340, "Invalid Collection File"},
    Message{342, "Some Movies were not found - Please check their locations"},
    Message{343, "KVO - Problems on loading Movie Collection"},
};

}  // namespace

std::string_view LoadResString(int number) {
  const auto* found = std::lower_bound(kMessages.begin(), kMessages.end(), number,
                                       [](const Message& m, int n) { return m.number < n; });
  const bool known = found != kMessages.end() && found->number == number;
  assert(known);
  return known ? found->text : std::string_view();
}

}  // namespace kvo
