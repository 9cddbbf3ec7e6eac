#include "platform/qt/qt_prompt_boxes.h"

#include <QInputDialog>

#include "platform/qt/text.h"

namespace kestrava {

std::string QtPromptBoxes::InputBox(const std::string& prompt, const std::string& title,
                                    const std::string& text) {
  const QString shown = ToShownLine(text);
  QInputDialog box(waits_.Owner());
  box.setWindowTitle(ToShown(title));
  box.setLabelText(ToShown(prompt));
  box.setTextValue(shown);
  if (waits_.Ask(box) != QDialog::Accepted) return {};
  // A text that nobody edited keeps its very bytes.
  return box.textValue() == shown ? text : LineToBytes(box.textValue());
}

}  // namespace kestrava
