/// The main window: a multiple-document frame in which every view opens. It keeps the ways from view to view.
#pragma once

#include "toolkit/workspace.h"

#include <QMainWindow>
#include <QPointer>
#include <vector>

class Controlpanel;
class QMdiArea;
class QMdiSubWindow;

class Mainform final : public QMainWindow, public Workspace
{
    Q_OBJECT

public:
    /// Makes AppDir/projets (any failure is ignored) and shows the welcome view.
    Mainform();
    ~Mainform() override;

    void showAcc() override;
    void showNouvprojet() override;
    void showOpenp() override;
    void showControlpanel() override;
    void showVar() override;
    void showGameoptions() override;
    void hideAcc() override;
    void openMap(const std::string& mapNumber) override;
    void openCombateditor() override;
    void placeTopLeft(View& view) override;
    int controlPanelWidth() const override;
    void endProgram() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// How views are put in order.
    using Arrangement = std::vector<QPoint>(const std::vector<QSize>& views, const QSize& area);

    void addKeys();
    /// Shows the next view, or the one before for -1, in the order in which they were opened.
    void showNeighbour(int step);
    void closeActive();
    void enterMenuBar();
    void arrange(Arrangement* arrangement);
    /// Scrolls to the control that has the keys.
    void reveal(QWidget* control);

    void Menu_Click();
    void MDIForm_Click();

    /// Gives a view its window in the work area, not yet shown.
    void addView(View* view);
    void fitScrollBars();
    void showView(View* view);
    template <class Only> void showOnly();
    template <class Only> Only* find() const;
    void noteActive(QMdiSubWindow* window);

    QMdiArea* area_ = nullptr;
    QPointer<View> active_;
};
