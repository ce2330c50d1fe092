#include "toolkit/boxes.h"

#include "toolkit/keys.h"

#include <QApplication>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace
{

/// Keeps a key that is still held from what opened a box from answering it. Typing alone repeats.
class HeldKeys : public QObject
{
public:
    HeldKeys() { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) {
            return false;
        }
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool types =
            qobject_cast<QLineEdit*>(watched) != nullptr && !isEnter(key) && key->key() != Qt::Key_Escape;
        return key->isAutoRepeat() && !types;
    }
};

QString titleOr(const QString& title)
{
    return title.isEmpty() ? u"Questforge"_s : title;
}

/// Text of a message as the toolkit breaks it: line ends of the system become its own.
QString boxText(QString text)
{
    return text.replace("\r\n"_L1, "\n"_L1);
}

} // namespace

void messageBox(QWidget* parent, const QString& text, BoxIcon icon, const QString& title)
{
    QMessageBox box(parent);
    box.setWindowTitle(titleOr(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(boxText(text));
    box.setIcon(icon == BoxIcon::Stop ? QMessageBox::Critical : QMessageBox::NoIcon);
    box.setStandardButtons(QMessageBox::Ok);
    const HeldKeys held;
    box.exec();
}

bool askYesNo(QWidget* parent, const QString& text)
{
    QMessageBox box(parent);
    box.setWindowTitle(titleOr({}));
    box.setTextFormat(Qt::PlainText);
    box.setText(boxText(text));
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    const HeldKeys held;
    return box.exec() == QMessageBox::Yes;
}

QString inputBox(QWidget* parent, const QString& prompt)
{
    constexpr int comfortableWidth = 360;
    QInputDialog box(parent);
    box.setWindowTitle(titleOr({}));
    box.setLabelText(prompt);
    box.resize(comfortableWidth, box.sizeHint().height());
    const HeldKeys held;
    return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}
