#pragma once

#include <deque>
#include <set>

#include "platform/event_loop.h"
#include "platform/message_box.h"
#include "platform/prompt_box.h"
#include "platform/window_system.h"

namespace kestrava::test {

/// What the user does in one turn of the event loop, or in a modal wait.
using Act = std::function<void()>;

using Texts = std::vector<std::string>;

/// Windows, message boxes and the event loop without a screen. A scripted user acts in the turns,
/// and answers what waits for him when it has been open for some of them.
class MemoryDesktop : public WindowSystem,
                      public EventLoop,
                      public MessageBoxes,
                      public PromptBoxes {
 public:
  void Load(Form& form) override {
    loaded.insert(&form);
    form.Load.Raise();
  }
  void Show(Form& form) override { form.SetVisible(true); }
  void ShowModal(Form& form) override {
    form.SetVisible(true);
    std::function<void(Form&)> act = [](Form&) {};
    if (!dialogs.empty()) {
      act = std::move(dialogs.front());
      dialogs.pop_front();
    }
    Wait();
    if (!ended) act(form);
    form.SetVisible(false);
  }
  void Unload(Form& form) override {
    if (loaded.erase(&form) == 0) return;
    form.Unload.Raise();
    form.SetVisible(false);
    if (form.Spec().style == FormStyle::MainWindow) ended = true;
  }
  TwipSize ScreenSize(const Form&) const override { return {15360, 11520}; }
  TwipSize OuterSize(const Form& form) const override {
    return {form.Spec().width + 90, form.Spec().height + 375};
  }

  void MsgBox(const std::string& text, MessageIcon icon) override {
    boxes.push_back({text, icon});
    Wait();
  }
  std::unique_ptr<OpenMsgBox> ShowMsgBox(const std::string& text, MessageIcon icon,
                                         std::function<void()> answered) override {
    boxes.push_back({text, icon});
    return std::make_unique<OpenBox>(*this, std::move(answered));
  }
  YesNo AskYesNo(const std::string& text, const std::string& title) override {
    questions.push_back(title + " " + text);
    Wait();
    return ended ? YesNo::No : overwrite;
  }
  std::string InputBox(const std::string&, const std::string&, const std::string&) override {
    const auto answer = onPrompt;
    Wait();
    return ended ? "" : answer();
  }

  /// One turn of the event loop: first the user acts, then what waited for the turn goes on.
  void Turn() {
    ++turns;
    if (onTurn && !ended) onTurn();
    if (!openBoxes.empty()) std::exchange(openBoxes.front()->answered, [] {})();
    EndTurn();
  }
  /// A modal wait of a dialog, a box or a menu.
  void Wait() {
    ++waits;
    for (int turn = openFor; turn > 0 && !ended; --turn) Turn();
    --waits;
  }

  std::set<Form*> loaded;
  std::deque<std::function<void(Form&)>> dialogs;  ///< what the user does in each dialog to come
  std::vector<std::pair<std::string, MessageIcon>> boxes;
  Texts questions;
  YesNo overwrite = YesNo::Yes;           ///< the user's answer to each question
  std::function<std::string()> onPrompt;  ///< gives the user's answer
  Act onTurn;
  int openFor = 1;  ///< turns until the user answers what waits for him
  int waits = 0;    ///< how many of those are open
  long turns = 0;
  bool ended = false;

 private:
  struct OpenBox : OpenMsgBox {
    OpenBox(MemoryDesktop& all, std::function<void()> act)
        : desktop(all), answered(std::move(act)) {
      desktop.openBoxes.push_back(this);
    }
    ~OpenBox() override { std::erase(desktop.openBoxes, this); }
    MemoryDesktop& desktop;
    std::function<void()> answered;
  };

  bool TurnIsSpared() override { return false; }
  void BeginTurn() override {}

  std::deque<OpenBox*> openBoxes;
};

}  // namespace kestrava::test
