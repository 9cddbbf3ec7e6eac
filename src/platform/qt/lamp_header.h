#pragma once

#include <QHeaderView>

namespace kestrava {

/// The fixed column of lamps: a vertical header that fills each section with its row's colour.
class LampHeader : public QHeaderView {
 public:
  explicit LampHeader(QWidget* parent);

  /// Shows the lamps of rows whose cells have changed.
  void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                   const QList<int>& roles) override;

 protected:
  void paintSection(QPainter* painter, const QRect& place, int section) const override;
};

}  // namespace kestrava
