#include "toolkit/view.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPixmap>

using namespace Qt::StringLiterals;

View::View(Workspace& workspace, const QString& name, const QString& caption)
    : workspace_(workspace)
{
    setObjectName(name);
    setWindowTitle(caption);
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidget(new QWidget);
    setWidgetResizable(true);
}

QSize View::sizeHint() const
{
    return surface()->sizeHint().expandedTo(surface()->minimumSize()).boundedTo(surface()->maximumSize());
}

void View::closeEvent(QCloseEvent* event)
{
    event->setAccepted(QApplication::activeModalWidget() == nullptr);
}

QMdiSubWindow* View::frameWindow() const
{
    return qobject_cast<QMdiSubWindow*>(parentWidget());
}

void View::fitWindow()
{
    QMdiSubWindow* frame = frameWindow();
    if (frame != nullptr && !frame->isMaximized() && !frame->isMinimized()) {
        frame->resize(frame->sizeHint());
    }
}

void setTag(QWidget* control, const QString& text)
{
    control->setProperty("Tag", text);
}

QString tag(const QWidget* control)
{
    return control->property("Tag").toString();
}

QLabel* textLabel(const QString& name, const QString& text, QWidget* parent)
{
    auto* label = named<QLabel>(name, text, parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QPixmap programPicture(const QString& name)
{
    const bool dense = qApp->devicePixelRatio() > 1;
    QPixmap picture(u":/pictures/"_s + name + (dense ? u"@2x.png"_s : u".png"_s));
    picture.setDevicePixelRatio(dense ? 2 : 1);
    return picture;
}
