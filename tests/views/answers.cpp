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

using namespace Qt::StringLiterals;

namespace
{

constexpr int lookInterval = 2; // ms

QString buttonsOf(const QDialog& dialog)
{
    QStringList texts;
    for (const QPushButton* button : dialog.findChildren<QPushButton*>()) {
        texts += button->text().remove(u'&');
    }
    texts.sort();
    return u" ("_s + texts.join(u' ') + u')';
}

/// A box in one text: icon, title, text, an input box's preset, its buttons in the order of the alphabet.
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

void press(QDialog& dialog, Answers::Reply reply)
{
    if (reply == Answers::Reply::Escape) {
        return QTest::keyClick(&dialog, Qt::Key_Escape);
    }
    const auto button = static_cast<QDialogButtonBox::StandardButton>(reply);
    QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
}

} // namespace

Answers::Answers()
{
    look_.setSingleShot(true);
    connect(&look_, &QTimer::timeout, this, &Answers::look);
    look_.start(lookInterval);
}

void Answers::box(const std::string& description, Reply reply)
{
    awaited_.push_back({description, reply, {}});
}

void Answers::line(const std::string& prompt, const std::string& answer, Reply reply)
{
    box("[Questforge] " + prompt + " <> (Cancel OK)", reply);
    awaited_.back().typed = answer;
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
    Awaited next{"no box", Reply::Ok, {}};
    if (!awaited_.empty()) {
        next = awaited_.front();
        awaited_.pop_front();
    }
    const std::string came = describe(dialog);
    EXPECT_EQ(came, next.description);
    if (came != next.description) {
        return dialog.reject();
    }
    if (!next.typed.empty()) {
        QApplication::clipboard()->setText(QString::fromStdString(next.typed));
        QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_V, Qt::ControlModifier);
    }
    press(dialog, next.reply);
}
