#pragma once

#include <QAbstractListModel>

#include "platform/control.h"

namespace kestrava {

/// The entries of a check list for Qt's views. The list tells of a change when it is made, which
/// may be once for each of many entries, so the model catches up in the next turn of the event
/// loop.
class CheckListModel final : public QAbstractListModel {
  Q_OBJECT

 public:
  CheckListModel(CheckList& list, QObject* parent) : QAbstractListModel(parent), list_(&list) {}

  /// Something about the list has changed.
  void NoteChange();
  /// The list goes; the view shows nothing from now on.
  void Detach() { list_ = nullptr; }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  void CatchUp();

  CheckList* list_;
  int rows_ = 0;
  bool changed_ = false;
};

}  // namespace kestrava
