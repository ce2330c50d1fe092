#include "toolkit/boxes.h"

#include <QInputDialog>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace
{

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
    return box.exec() == QMessageBox::Yes;
}

QString inputBox(QWidget* parent, const QString& prompt)
{
    constexpr int comfortableWidth = 360;
    QInputDialog box(parent);
    box.setWindowTitle(titleOr({}));
    box.setLabelText(prompt);
    box.resize(comfortableWidth, box.sizeHint().height());
    return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}
