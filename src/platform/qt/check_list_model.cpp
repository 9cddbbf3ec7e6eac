#include "platform/qt/check_list_model.h"

#include <QTimer>

#include "platform/qt/text.h"

namespace kestrava {

void CheckListModel::NoteChange() {
  if (changed_) return;
  changed_ = true;
  QTimer::singleShot(0, this, &CheckListModel::CatchUp);
}

void CheckListModel::CatchUp() {
  if (!changed_ || !list_) return;
  changed_ = false;
  const int rows = list_->ListCount();
  if (rows == rows_) {
    if (rows > 0) emit dataChanged(index(0), index(rows - 1));
    return;
  }
  beginResetModel();
  rows_ = rows;
  endResetModel();
}

int CheckListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

QVariant CheckListModel::data(const QModelIndex& index, int role) const {
  if (!list_ || !index.isValid() || index.row() >= list_->ListCount()) return {};
  if (role == Qt::DisplayRole) return ToShownLine(list_->List(index.row()));
  if (role != Qt::CheckStateRole) return {};
  return list_->Selected(index.row()) ? Qt::Checked : Qt::Unchecked;
}

bool CheckListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !list_ || index.row() >= list_->ListCount()) return false;
  list_->SetSelected(index.row(), value.toInt() == Qt::Checked);
  return true;
}

Qt::ItemFlags CheckListModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable;
}

}  // namespace kestrava
