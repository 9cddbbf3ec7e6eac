#pragma once

#include <QGroupBox>
#include <QListWidget>
#include <string>

class QFileDialog;

namespace kestrava {

/// A list below a file dialog: the files of its folder whose names aren't UTF-8. The toolkit leaves
/// them out, and can't give their bytes back. It shows only where there are such files.
///
/// The dialog must take names of files that it doesn't find (`QFileDialog::AnyFile`).
class OddFileNames final : public QGroupBox {
  Q_OBJECT

 public:
  /// @param pattern of the names that are offered, such as "*.kvl".
  OddFileNames(QFileDialog& dialog, QString pattern);

  /// The bytes of the path that the dialog gives as `chosen`.
  std::string PathOf(const QString& chosen) const;

 private:
  void Fill(const QString& folder);

  QString pattern_;
  QListWidget* names_;
};

}  // namespace kestrava
