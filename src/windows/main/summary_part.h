// The two short plates between the list and the details: what the collection holds, and where in the clip the
// player is.
#pragma once

#include "program/main_window_state.h"
#include "windows/main/plate.h"

#include <QCoreApplication>
#include <functional>

namespace kvo {

class IconKey;

class CollectionDetailsPart : public Plate {
  Q_DECLARE_TR_FUNCTIONS(kvo::CollectionDetailsPart)

 public:
  CollectionDetailsPart(const CollectionDetailsState& state, QWidget* parent);
  void layOut(const FaceScale& scale);
  void draw();

 private:
  const CollectionDetailsState& state_;
  FaceLabel* clips_;
  FaceLabel* total_;
};

class PositionPart : public Plate {
  Q_DECLARE_TR_FUNCTIONS(kvo::PositionPart)

 public:
  /// `index` opens the index of the clip in hand, for which there is a key while there is one.
  PositionPart(const DetailsState& state, const MarkersState& markers, std::function<void()> index,
               QWidget* parent);
  void layOut(const FaceScale& scale);
  /// `colour` is that of values. Without a position the plate is empty, and its place not bare.
  void draw(Rgb colour, bool hasPosition);
  [[nodiscard]] QWidget* indexKey() const;

 private:
  const DetailsState& state_;
  const MarkersState& markers_;
  FaceLabel* position_;
  IconKey* index_;
  FaceScale scale_;
};

}  // namespace kvo
