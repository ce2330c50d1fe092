/// The modal boxes of the system. Their title is the application's unless another is given. A key held down
/// since before a box opened does not answer it.
#pragma once

#include <QString>

class QWidget;

enum class BoxIcon { None, Stop };

/// Shows a message with an OK button and waits for it.
void messageBox(QWidget* parent, const QString& text, BoxIcon icon = BoxIcon::None,
                const QString& title = {});

/// Asks with the buttons Yes and No; true for Yes. The close box and Escape count as No.
bool askYesNo(QWidget* parent, const QString& text);

/// Asks for one line; empty for Cancel.
QString inputBox(QWidget* parent, const QString& prompt);
