#include "platform/qt/qt_common_dialog.h"

#include <QFile>
#include <QFileDialog>

#include "platform/qt/odd_file_names.h"
#include "platform/qt/text.h"

namespace kestrava {

namespace {

/// The second half of "Description|*.x".
QString Pattern(const std::string& filter) { return ToShown(filter.substr(filter.find('|') + 1)); }

/// "Description (*.x)|*.x" in the words of Qt: "Description (*.x)".
QString NameFilter(const std::string& filter) {
  const std::size_t bar = filter.find('|');
  QString description = ToShown(filter.substr(0, bar));
  if (bar == std::string::npos || description.endsWith(')')) return description;
  return description + QStringLiteral(" (%1)").arg(Pattern(filter));
}

}  // namespace

void QtCommonDialog::ShowOpen() {
  QFileDialog dialog(waits_.Owner());
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setOption(QFileDialog::ReadOnly);
  Ask(dialog);
}

void QtCommonDialog::ShowSave() {
  QFileDialog dialog(waits_.Owner());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // Whether a file may be replaced is asked by whoever writes it.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  Ask(dialog);
}

void QtCommonDialog::Ask(QFileDialog& dialog) {
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  // Whether there is such a file is seen by whoever opens it.
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setNameFilter(NameFilter(Filter));
  if (!InitDir.empty()) dialog.setDirectory(QFile::decodeName(InitDir.c_str()));
  const auto* oddNames = new OddFileNames(dialog, Pattern(Filter));
  FileName.clear();
  if (waits_.Ask(dialog) != QDialog::Accepted) return;
  FileName = oddNames->PathOf(dialog.selectedFiles().value(0));
}

}  // namespace kestrava
