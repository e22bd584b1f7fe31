// Which of many names are shown to choose from: by a search, and by what the user likes and has used last.
#pragma once

#include "base/revised_list.h"
#include "ports/user_store.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvo {

struct NameChoice {
  std::string find;                     ///< what the names are searched by
  bool onlyFavourites = false;          ///< favourites and those used last alone
  RevisedList<std::string> favourites;  ///< in list order
  std::vector<std::string> lastUsed;    ///< the latest first
  RevisedList<std::string> shown;       ///< names that pass the search, in list order

  [[nodiscard]] bool isFavourite(std::string_view name) const;
};

class NameChooser {
 public:
  /// Of those used last; more are forgotten.
  static constexpr std::size_t kMostLastUsed = 6;

  /// Favourites and those used last are kept in two values of the store whose names begin with `kind`. All
  /// outlive the object.
  NameChooser(NameChoice& choice, UserStore& store, std::string_view kind)
      : choice_(choice), store_(store), kind_(kind) {}

  /// The names on offer, in list order. What another version of the program had on offer is left out.
  void offer(std::vector<std::string> names);

  void find(std::string text);
  void showFavouritesAlone(bool alone);
  void toggleFavourite(std::string_view name);
  [[nodiscard]] bool isFavourite(std::string_view name) const { return choice_.isFavourite(name); }
  void noteUse(const std::string& name);

 private:
  [[nodiscard]] std::vector<std::string> kept(const std::string& value) const;
  [[nodiscard]] std::string favouritesValue() const { return kind_ + "Favourites"; }
  [[nodiscard]] std::string lastUsedValue() const { return kind_ + "sUsed"; }
  void show();

  NameChoice& choice_;
  UserStore& store_;
  std::string kind_;
  std::vector<std::string> names_;
};

}  // namespace kvo
