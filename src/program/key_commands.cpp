#include "program/key_commands.h"

namespace kvo {

bool KeyCommands::select(int number) {
  if (number < 1 || number > static_cast<int>(window_.list.Fillist.rows().size())) return false;
  list_.select(number);
  return true;
}

bool KeyCommands::KeyCommand(char key) {
  const int inHand = window_.list.ListIndex + 1;
  if (inHand < 1) return false;
  if (key >= '1' && key <= ':') return select(key - '0');  // the colon follows the 9, and is 10
  switch (key) {
    case 'T':
    case 't':
      return select(inHand + 1);
    case 'V':
    case 'v':
      return select(inHand - 1);
    default:
      return false;
  }
}

}  // namespace kvo
