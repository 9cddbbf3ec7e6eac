#include "platform/qt/odd_file_names.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QVBoxLayout>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/qt/text.h"

namespace kestrava {

namespace {

constexpr int kBytes = Qt::UserRole;
constexpr int kLinesShown = 4;

bool IsOdd(const QByteArray& name) { return QFile::encodeName(QFile::decodeName(name)) != name; }

}  // namespace

OddFileNames::OddFileNames(QFileDialog& dialog, QString pattern)
    : QGroupBox("Names in an older encoding", &dialog),
      pattern_(std::move(pattern)),
      names_(new QListWidget(this)) {
  names_->setObjectName("oddNames");
  names_->setFixedHeight(kLinesShown * fontMetrics().lineSpacing());
  (new QVBoxLayout(this))->addWidget(names_);
  auto* places = qobject_cast<QGridLayout*>(dialog.layout());
  hide();
  if (!places) return;
  places->addWidget(this, places->rowCount(), 0, 1, -1);
  Fill(dialog.directory().path());
  if (const auto* folders = dialog.findChild<QFileSystemModel*>()) {
    connect(folders, &QFileSystemModel::rootPathChanged, this, &OddFileNames::Fill);
  }
  connect(names_, &QListWidget::currentTextChanged, &dialog, &QFileDialog::selectFile);
  connect(names_, &QListWidget::itemActivated, &dialog,
          [&dialog] { static_cast<QDialog&>(dialog).accept(); });
}

std::string OddFileNames::PathOf(const QString& chosen) const {
  const QFileInfo file(chosen);
  const auto same = names_->findItems(file.fileName(), Qt::MatchCaseSensitive);
  // A name in UTF-8 may read the same.
  if (same.isEmpty() || (file.exists() && !same.contains(names_->currentItem()))) {
    return QFile::encodeName(chosen).toStdString();
  }
  return (QFile::encodeName(file.path()) + '/' + same.first()->data(kBytes).toByteArray())
      .toStdString();
}

void OddFileNames::Fill(const QString& folder) {
  names_->clear();
  std::error_code error;
  std::filesystem::directory_iterator entry(QFile::encodeName(folder).toStdString(), error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    const auto name = QByteArray::fromStdString(entry->path().filename().string());
    std::error_code unknown;
    if (!IsOdd(name) || !entry->is_regular_file(unknown)) continue;
    const QString shown = ToShown({name.data(), static_cast<std::size_t>(name.size())});
    if (!QDir::match(pattern_, shown)) continue;
    auto* item = new QListWidgetItem(shown, names_);
    item->setData(kBytes, name);
  }
  names_->sortItems();
  setVisible(names_->count() > 0);
}

}  // namespace kestrava
