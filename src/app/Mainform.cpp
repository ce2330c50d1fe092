#include "app/Mainform.h"

#include "app/Acc.h"
#include "fights/combateditor.h"
#include "maps/mapeditor.h"
#include "project/Controlpanel.h"
#include "project/gameoptions.h"
#include "project/nouvprojet.h"
#include "project/openp.h"
#include "store/store.h"
#include "variables/var.h"

#include <algorithm>
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QGroupBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace
{

// A new view lies beside the control panel and a little off the one before it, so that its title can be seen.
constexpr int cascadeStep = 24; // pixels
constexpr int cascadeSteps = 6;
constexpr QSize openingSize(1280, 720); // holds the control panel and one map editor side by side

/// The toolkit would have a box within a box read out by the outer one's title.
void nameBoxes(const View& view)
{
    for (QGroupBox* box : view.findChildren<QGroupBox*>()) {
        if (box->accessibleName().isEmpty()) {
            box->setAccessibleName(box->title().trimmed());
        }
    }
}

} // namespace

Mainform::Mainform()
{
    platform::makeFolder(AppDir() / "projets");

    setObjectName("Mainform"_L1);
    setWindowTitle(u"Questforge 3"_s);
    area_ = new QMdiArea(this);
    area_->setObjectName("WorkArea"_L1);
    area_->setBackground(Qt::NoBrush); // a brush would stay as it is when the colours change
    area_->viewport()->setBackgroundRole(QPalette::Dark);
    area_->viewport()->setAutoFillBackground(true);
    fitScrollBars();
    area_->setActivationOrder(
        QMdiArea::ActivationHistoryOrder); // a closed view gives way to the one before it
    area_->viewport()->installEventFilter(this);
    setCentralWidget(area_);
    QAction* menu = menuBar()->addAction(u"Menu"_s, this, &Mainform::Menu_Click);
    menu->setObjectName("Menu"_L1);
    connect(area_, &QMdiArea::subWindowActivated, this, &Mainform::noteActive);
    connect(area_, &QMdiArea::subWindowActivated, this, &Mainform::fitScrollBars);
    addKeys();
    resize(openingSize.boundedTo(screen()->availableSize()));
    showAcc();
}

Mainform::~Mainform()
{
    qApp->disconnect(this);
    area_->disconnect(this); // the area, which goes later, reports windows to the end
    for (const QMdiSubWindow* window : area_->subWindowList()) {
        window->disconnect(this);
    }
}

template <class Only> Only* Mainform::find() const
{
    for (const QMdiSubWindow* window : area_->subWindowList()) {
        if (auto* view = qobject_cast<Only*>(window->widget())) {
            return view;
        }
    }
    return nullptr;
}

template <class Only> void Mainform::showOnly()
{
    View* view = find<Only>();
    if (view == nullptr) {
        view = new Only(*this);
        addView(view);
    }
    showView(view);
}

void Mainform::addView(View* view)
{
    auto* window = new QMdiSubWindow;
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWidget(view);
    nameBoxes(*view);
    for (QAction* action : window->systemMenu()->actions()) {
        action->setShortcuts({}); // the main window's keys do it; of two keys alike none would
    }
    connect(window, &QMdiSubWindow::windowStateChanged, this, &Mainform::fitScrollBars);
    const int step = static_cast<int>(area_->subWindowList().size()) % cascadeSteps * cascadeStep;
    area_->addSubWindow(window);
    window->resize(window->sizeHint());
    window->move(controlPanelWidth() + step, step);
}

/// A maximised view fills the area: there is nothing to scroll to, and the toolkit, which counts views
/// beneath it, would show and hide the bars without end.
void Mainform::fitScrollBars()
{
    const QList<QMdiSubWindow*> windows = area_->subWindowList();
    const bool filled = std::any_of(windows.begin(), windows.end(), [](const QMdiSubWindow* window) {
        return window->isVisible() && window->isMaximized();
    });
    const auto policy = filled ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
    area_->setHorizontalScrollBarPolicy(policy);
    area_->setVerticalScrollBarPolicy(policy);
}

void Mainform::showView(View* view)
{
    auto* window = qobject_cast<QMdiSubWindow*>(view->parentWidget());
    if (window->isMinimized()) {
        window->showNormal();
    }
    view->show();
    window->show();
    area_->setActiveSubWindow(window);
    view->takeFocus();
    noteActive(window);
}

/// Tells the views which of them became active. The area says so, too, when the program goes to the
/// background and comes back: neither is a change of view.
void Mainform::noteActive(QMdiSubWindow* window)
{
    View* view = window == nullptr ? nullptr : qobject_cast<View*>(window->widget());
    if (view == nullptr || view == active_) {
        return;
    }
    const QPointer<View> before = active_;
    active_ = view;
    if (before) {
        before->deactivated();
    }
    view->activated();
}

void Mainform::showAcc()
{
    showOnly<Acc>();
}

void Mainform::showNouvprojet()
{
    showOnly<nouvprojet>();
}

void Mainform::showOpenp()
{
    showOnly<openp>();
}

void Mainform::showControlpanel()
{
    showOnly<Controlpanel>();
}

void Mainform::showVar()
{
    showOnly<var>();
}

void Mainform::showGameoptions()
{
    showOnly<gameoptions>();
}

void Mainform::hideAcc()
{
    if (Acc* acc = find<Acc>()) {
        acc->parentWidget()->hide();
        if (active_ == acc) {
            active_ = nullptr;
        }
    }
}

void Mainform::openMap(const std::string& mapNumber)
{
    auto* view = new mapeditor(*this);
    addView(view);
    view->open();
    view->setMapField(mapNumber);
    view->loadmap();
    showView(view);
}

void Mainform::openCombateditor()
{
    auto* view = new combateditor(*this);
    addView(view);
    showView(view);
}

void Mainform::placeTopLeft(View& view)
{
    view.parentWidget()->move(0, 0);
}

int Mainform::controlPanelWidth() const
{
    const Controlpanel* panel = find<Controlpanel>();
    if (panel == nullptr) {
        return 0;
    }
    const QWidget* frame = panel->parentWidget();
    return frame->isMaximized() ? frame->sizeHint().width() : frame->width(); // it will not stay so wide
}

void Mainform::endProgram()
{
    QCoreApplication::exit(0);
}

void Mainform::Menu_Click()
{
    showAcc();
    placeTopLeft(*find<Acc>());
}

void Mainform::MDIForm_Click()
{
    hideAcc();
}

void Mainform::closeEvent(QCloseEvent* event)
{
    Controlpanel* panel = find<Controlpanel>();
    event->setAccepted(panel == nullptr || panel->parentWidget()->close());
}

bool Mainform::eventFilter(QObject* watched, QEvent* event)
{
    // A view passes on the presses that it has no use for; those are none of the background's.
    if (watched == area_->viewport() && event->type() == QEvent::MouseButtonRelease &&
        area_->viewport()->childAt(static_cast<QMouseEvent*>(event)->pos()) == nullptr) {
        MDIForm_Click();
    }
    return QMainWindow::eventFilter(watched, event);
}
