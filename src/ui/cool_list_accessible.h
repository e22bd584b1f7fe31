// What a screen reader is told of the list control: a list whose items have names, places and states.
#pragma once

namespace kvo {

class CoolListView;

/// Makes list controls known to assistive programs. More than once does nothing more.
void installCoolListAccessibility();

/// Tells them that the keyboard is at an item.
void tellItemFocus(const CoolListView& view, int index);

}  // namespace kvo
