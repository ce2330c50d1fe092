#include "answers.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QClipboard>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <QTest>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

constexpr int lookInterval = 2; // ms

QString buttonText(const QPushButton* button)
{
    return button->text().remove(u'&');
}

QString buttonsOf(const QDialog& dialog)
{
    QStringList texts;
    for (const QPushButton* button : dialog.findChildren<QPushButton*>()) {
        texts += buttonText(button);
    }
    texts.sort();
    return u" ("_s + texts.join(u' ') + u')';
}

void press(QDialog& dialog, const QString& text)
{
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
        if (buttonText(button) == text) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    ADD_FAILURE() << "no button " << text.toStdString();
}

void paste(const QDialog& dialog, const std::string& text)
{
    QApplication::clipboard()->setText(QString::fromStdString(text));
    QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_V, Qt::ControlModifier);
}

void reply(QDialog& dialog, Answers::Reply reply)
{
    switch (reply) {
    case Answers::Reply::Ok:
        return press(dialog, u"OK"_s);
    case Answers::Reply::Yes:
        return press(dialog, u"Yes"_s);
    case Answers::Reply::No:
        return press(dialog, u"No"_s);
    case Answers::Reply::Cancel:
        return press(dialog, u"Cancel"_s);
    case Answers::Reply::Enter:
        return QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    case Answers::Reply::Escape:
        return QTest::keyClick(&dialog, Qt::Key_Escape);
    case Answers::Reply::CloseBox:
        dialog.close();
    }
}

} // namespace

std::string describe(const QDialog& dialog)
{
    QString text = u'[' + dialog.windowTitle() + u"] "_s;
    if (const auto* box = qobject_cast<const QMessageBox*>(&dialog)) {
        const bool stop = box->icon() == QMessageBox::Critical;
        text.prepend(stop ? u"stop "_s : box->icon() == QMessageBox::NoIcon ? QString() : u"other icon "_s);
        text += box->text();
    } else if (const auto* input = qobject_cast<const QInputDialog*>(&dialog)) {
        text += input->labelText() + u" <"_s + input->textValue() + u'>';
    }
    return (text + buttonsOf(dialog)).toStdString();
}

Answers::Answers()
{
    look_.setSingleShot(true);
    connect(&look_, &QTimer::timeout, this, &Answers::look);
    look_.start(lookInterval);
}

void Answers::message(const std::string& text)
{
    box("[Questforge] " + text + " (OK)", Reply::Ok);
}

void Answers::stop(const std::string& text)
{
    box("stop [Questforge] " + text + " (OK)", Reply::Ok);
}

void Answers::box(const std::string& description, Reply reply)
{
    awaited_.push_back({description, reply, {}});
}

void Answers::question(const std::string& text, Reply reply)
{
    box("[Questforge] " + text + " (No Yes)", reply);
}

void Answers::line(const std::string& prompt, const std::string& answer, Reply reply)
{
    line(prompt, reply);
    awaited_.back().typed = answer;
}

void Answers::line(const std::string& prompt, Reply reply)
{
    box("[Questforge] " + prompt + " <> (Cancel OK)", reply);
}

void Answers::allCame()
{
    for (const Awaited& missing : awaited_) {
        ADD_FAILURE() << "never came: " << missing.description;
    }
    awaited_.clear();
}

void Answers::look()
{
    look_.start(lookInterval); // first, for an answer may lead to the next box, which waits within this call
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    // A box is modal before it is wholly shown, and takes no keys until one of its controls has the focus.
    if (dialog != nullptr && dialog->isVisible() && dialog->focusWidget() != nullptr) {
        answer(*dialog);
    }
}

void Answers::answer(QDialog& dialog)
{
    if (awaited_.empty()) {
        ADD_FAILURE() << "nobody awaits: " << describe(dialog);
        dialog.reject();
        return;
    }
    const Awaited next = awaited_.front();
    awaited_.pop_front();
    if (describe(dialog) != next.description) {
        ADD_FAILURE() << "awaited: " << next.description << "\ncame:    " << describe(dialog);
        dialog.reject();
        return;
    }
    if (!next.typed.empty()) {
        paste(dialog, next.typed);
    }
    reply(dialog, next.reply);
}
