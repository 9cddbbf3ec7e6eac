#pragma once

#include <QPoint>
#include <QRect>
#include <QString>
#include <QWidget>

namespace kestrava {

/// Shows `text` to the letter, whatever looks like markup in it, in a tip that wraps its lines.
void ShowPlainTip(const QString& text, const QPoint& screenPosition, QWidget* widget,
                  const QRect& place);

}  // namespace kestrava
