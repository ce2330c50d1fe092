/// Answers the modal boxes of the program in the order that a test lays down beforehand.
#pragma once

#include <deque>
#include <QDialogButtonBox>
#include <QObject>
#include <QTimer>
#include <string>

/// A box that differs from the next one awaited, one that nobody awaits and one that never comes fail the
/// test; none of them makes it wait: every box is closed.
class Answers : public QObject
{
public:
    enum class Reply {
        Escape,
        Ok = QDialogButtonBox::Ok,
        Yes = QDialogButtonBox::Yes,
        No = QDialogButtonBox::No,
        Cancel = QDialogButtonBox::Cancel
    };

    Answers();

    // What is awaited next. Texts are UTF-8, lines in them end with "\n".
    /// A message, answered with OK: without an icon or with the stop icon.
    void message(const std::string& text) { box("[Questforge] " + text + " (OK)", Reply::Ok); }
    void stop(const std::string& text) { box("stop [Questforge] " + text + " (OK)", Reply::Ok); }
    void question(const std::string& text, Reply reply) { box("[Questforge] " + text + " (No Yes)", reply); }
    /// An input box; the answer is pasted.
    void line(const std::string& prompt, const std::string& answer, Reply reply = Reply::Ok);
    /// Any box, in one text: icon, title, text, an input box's preset, its buttons by the alphabet.
    void box(const std::string& description, Reply reply);

    /// Fails the test for each box still awaited, and awaits none any more.
    void allCame();

private:
    struct Awaited {
        std::string description;
        Reply reply = Reply::Ok;
        std::string typed;
    };

    void look();
    void answer(QDialog& dialog);

    std::deque<Awaited> awaited_;
    QTimer look_;
};
