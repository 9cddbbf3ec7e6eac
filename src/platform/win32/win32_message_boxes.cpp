#include "platform/win32/win32_message_boxes.h"

#include <utility>

#include "platform/program_title.h"
#include "platform/win32/box_form.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

HICON PictureOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Stop:
      return LoadIconW(nullptr, IDI_ERROR);
    case MessageIcon::Exclamation:
      return LoadIconW(nullptr, IDI_WARNING);
    case MessageIcon::None:
      break;
  }
  return nullptr;
}

/// The sound that the user has chosen for such a box.
UINT SoundOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Stop:
      return MB_ICONERROR;
    case MessageIcon::Exclamation:
      return MB_ICONWARNING;
    case MessageIcon::None:
      break;
  }
  return MB_OK;
}

/// A message with an OK button, loaded for as long as this lives.
class MessageForm final : public OpenMsgBox {
 public:
  MessageForm(Win32WindowSystem& windows, const std::string& text, MessageIcon icon)
      : windows_(windows),
        form_({.title = kProgramTitle,
               .text = text,
               .picture = icon != MessageIcon::None,
               .firstButton = "OK"}) {
    windows_.Load(form_, PictureOf(icon));
    MessageBeep(SoundOf(icon));
  }
  ~MessageForm() override { windows_.Unload(form_); }

  BoxForm& Window() { return form_; }

 private:
  Win32WindowSystem& windows_;
  BoxForm form_;
};

}  // namespace

void Win32MessageBoxes::MsgBox(const std::string& text, MessageIcon icon) {
  if (windows_.HasEnded()) return;
  MessageForm message(windows_, text, icon);
  windows_.ShowModal(message.Window());
}

std::unique_ptr<OpenMsgBox> Win32MessageBoxes::ShowMsgBox(const std::string& text, MessageIcon icon,
                                                          std::function<void()> answered) {
  auto message = std::make_unique<MessageForm>(windows_, text, icon);
  windows_.Open(message->Window(), std::move(answered));
  return message;
}

YesNo Win32MessageBoxes::AskYesNo(const std::string& text, const std::string& title) {
  if (windows_.HasEnded()) return YesNo::No;
  BoxForm question({.title = title,
                    .text = text,
                    .picture = true,
                    .firstButton = "&Yes",
                    .secondButton = "&No"});
  windows_.Load(question, LoadIconW(nullptr, IDI_QUESTION));
  windows_.ShowModal(question);
  windows_.Unload(question);
  return question.Confirmed() ? YesNo::Yes : YesNo::No;
}

}  // namespace kestrava
