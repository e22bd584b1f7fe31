#include "base/numbers.h"
#include "ui/cool_list.h"

#include <array>
#include <limits>
#include <variant>

namespace kvo {
namespace {

using P = CoolListProperties;

struct Property {
  const char* name;
  std::variant<int P::*, bool P::*, ControlColour P::*, std::string P::*> field;
};

const std::array kProperties = {
    Property{"Alignment", &P::Alignment},
    Property{"Appearance", &P::Appearance},
    Property{"BorderStyle", &P::BorderStyle},
    Property{"BackNormal", &P::BackNormal},
    Property{"BackSelected", &P::BackSelected},
    Property{"BackSelectedG1", &P::BackSelectedG1},
    Property{"BackSelectedG2", &P::BackSelectedG2},
    Property{"BoxBorder", &P::BoxBorder},
    Property{"BoxOffset", &P::BoxOffset},
    Property{"BoxRadius", &P::BoxRadius},
    Property{"Enabled", &P::Enabled},
    Property{"Focus", &P::Focus},
    Property{"Font", &P::Font},
    Property{"FontNormal", &P::FontNormal},
    Property{"FontSelected", &P::FontSelected},
    Property{"HoverSelection", &P::HoverSelection},
    Property{"ItemHeight", &P::ItemHeight},
    Property{"ItemHeightAuto", &P::ItemHeightAuto},
    Property{"ItemOffset", &P::ItemOffset},
    Property{"ItemTextLeft", &P::ItemTextLeft},
    Property{"MouseIcon", &P::MouseIcon},
    Property{"MousePointer", &P::MousePointer},
    Property{"OrderType", &P::OrderType},
    Property{"ScrollBarWidth", &P::ScrollBarWidth},
    Property{"SelectionPicture", &P::SelectionPicture},
    Property{"SelectMode", &P::SelectMode},
    Property{"SelectModeStyle", &P::SelectModeStyle},
    Property{"WordWrap", &P::WordWrap},
};

template <class Field>
bool fits(double number) {
  return number >= static_cast<double>(std::numeric_limits<Field>::min()) &&
         number <= static_cast<double>(std::numeric_limits<Field>::max());
}

}  // namespace

CoolListProperties readProperties(const PropertyBag& bag) {
  CoolListProperties properties;
  for (const auto& [name, field] : kProperties) {
    const auto found = bag.find(name);
    if (found == bag.end()) continue;
    const auto number = numberIn(found->second);
    std::visit(
        [&]<class Field>(Field P::*member) {
          if constexpr (std::is_same_v<Field, std::string>) {
            properties.*member = found->second;
          } else if (!number) {
            return;
          } else if constexpr (std::is_same_v<Field, bool>) {
            properties.*member = *number != 0;
          } else if (fits<Field>(*number)) {
            properties.*member = static_cast<Field>(*number);
          }
        },
        field);
  }
  return properties;
}

PropertyBag writeProperties(const CoolListProperties& properties) {
  PropertyBag bag;
  for (const auto& [name, field] : kProperties) {
    bag[name] = std::visit(
        [&]<class Field>(Field P::*member) {
          if constexpr (std::is_same_v<Field, std::string>)
            return properties.*member;
          else
            return std::to_string(properties.*member);
        },
        field);
  }
  return bag;
}

}  // namespace kvo
