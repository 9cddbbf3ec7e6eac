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

constexpr int kLinesShown = 4;

QString Shown(const QByteArray& name) {
  return ToShown({name.data(), static_cast<std::size_t>(name.size())});
}

/// The files of the folder that the toolkit leaves out.
QList<QByteArray> OddNamesIn(const QString& folder, const QString& pattern) {
  QList<QByteArray> names;
  std::error_code error;
  std::filesystem::directory_iterator entry(QFile::encodeName(folder).toStdString(), error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    const auto name = QByteArray::fromStdString(entry->path().filename().string());
    if (QFile::encodeName(QFile::decodeName(name)) == name) continue;
    std::error_code unknown;
    if (entry->is_regular_file(unknown) && QDir::match(pattern, Shown(name))) names << name;
  }
  return names;
}

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
  const QListWidgetItem* item = names_->currentItem();
  // A name in UTF-8 may read the same.
  const bool asListed = item && item->text() == file.fileName();
  if (asListed || !file.exists()) {
    for (const QByteArray& name : OddNamesIn(file.path(), pattern_)) {
      if (Shown(name) == file.fileName()) {
        return (QFile::encodeName(file.path()) + '/' + name).toStdString();
      }
    }
  }
  return QFile::encodeName(chosen).toStdString();
}

void OddFileNames::Fill(const QString& folder) {
  names_->clear();
  for (const QByteArray& name : OddNamesIn(folder, pattern_)) names_->addItem(Shown(name));
  names_->sortItems();
  setVisible(names_->count() > 0);
}

}  // namespace kestrava
