#include "platform/qt/qt_common_dialog.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>

#include "platform/qt/text.h"

namespace kestrava {

namespace {

/// "Description (*.x)|*.x" in the words of Qt: "Description (*.x)".
QString NameFilter(const std::string& filter) {
  const std::size_t bar = filter.find('|');
  QString description = ToShown(filter.substr(0, bar));
  if (bar == std::string::npos || description.endsWith(')')) return description;
  return description + QStringLiteral(" (%1)").arg(ToShown(filter.substr(bar + 1)));
}

}  // namespace

void QtCommonDialog::ShowOpen() {
  QFileDialog dialog(QApplication::activeWindow());
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::ExistingFile);
  Ask(dialog);
}

void QtCommonDialog::ShowSave() {
  QFileDialog dialog(QApplication::activeWindow());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  // Whether a file may be replaced is asked by whoever writes it.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  Ask(dialog);
}

void QtCommonDialog::Ask(QFileDialog& dialog) {
  if (eventLoop_.HasEnded()) {
    FileName.clear();
    return;
  }
  dialog.setNameFilter(NameFilter(Filter));
  if (!InitDir.empty()) dialog.setDirectory(QFile::decodeName(InitDir.c_str()));
  QObject::connect(&eventLoop_, &QtEventLoop::Ended, &dialog, &QDialog::reject);
  const bool accepted = dialog.exec() == QDialog::Accepted;
  const QString chosen = accepted ? dialog.selectedFiles().value(0) : QString();
  // Only now: another command may have shown a dialog meanwhile.
  FileName = QFile::encodeName(chosen).toStdString();
}

}  // namespace kestrava
