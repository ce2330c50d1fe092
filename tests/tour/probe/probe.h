/// Tells the tour where the controls of the unchanged program are and what they show.
#pragma once

#include <QLocalServer>

class QLocalSocket;

/// Answers each line of a connection with one line of JSON. A line is a path of controls, such as
/// "mapeditor/CarteImg": each piece is an object name, a class name, or "=" and a caption, at any depth below
/// the piece before. Of several controls the topmost window's wins. The answer holds the control's place on
/// the screen in pixels and its state, or nothing when there is no such control.
class Probe : public QLocalServer
{
    Q_OBJECT

public:
    /// Listens at a socket file. Failure: a line on the error stream; nothing is answered then.
    explicit Probe(const QString& socketFile);

private:
    void greet();
    static void answer(QLocalSocket* connection);
};
