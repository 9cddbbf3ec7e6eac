#pragma once

class QLabel;

namespace kestrava {

class Label;

/// Shows the label's caption in its look. A link takes the focus and the pointer of links.
void ShowLabel(const Label& label, QLabel& widget);

}  // namespace kestrava
