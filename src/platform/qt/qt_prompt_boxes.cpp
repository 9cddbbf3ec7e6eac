#include "platform/qt/qt_prompt_boxes.h"

#include <QApplication>
#include <QInputDialog>

#include "platform/qt/text.h"

namespace kestrava {

std::string QtPromptBoxes::InputBox(const std::string& prompt, const std::string& title,
                                    const std::string& text) {
  if (eventLoop_.HasEnded()) return {};
  const QString shown = ToShownLine(text);
  QInputDialog box(QApplication::activeWindow());
  box.setWindowTitle(ToShown(title));
  box.setLabelText(ToShown(prompt));
  box.setTextValue(shown);
  QObject::connect(&eventLoop_, &QtEventLoop::Ended, &box, &QDialog::reject);
  if (box.exec() != QDialog::Accepted) return {};
  // A text that nobody edited keeps its very bytes.
  return box.textValue() == shown ? text : LineToBytes(box.textValue());
}

}  // namespace kestrava
