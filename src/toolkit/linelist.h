/// A list of text lines: quick whatever their number and length. Only lines that are seen are turned into the
/// toolkit's strings; a long line is shown shortened and kept whole.
#pragma once

#include <QListView>
#include <string>
#include <vector>

class LineList : public QListView
{
    Q_OBJECT

public:
    explicit LineList(QWidget* parent);

    void clear();
    void appendLine(std::string line);
    /// Selects none of them.
    void setLines(std::vector<std::string> lines);
    /// Removes a line; row counts from 0.
    void removeLine(int row);
    int count() const;
    /// The lines as they were given, whole.
    const std::vector<std::string>& lines() const;
    const std::string& line(int row) const;
    /// The selected row counted from 0; -1 when none is.
    int selectedRow() const;
    /// Lets a key that selects another line choose it at once.
    void chooseBySteps() { stepsChoose_ = true; }

Q_SIGNALS:
    /// A line was clicked, or Space or Enter pressed on the selected one; row counts from 0. The arrow keys
    /// move the selection alone, unless steps choose: a choice may ask, and its answer change the line.
    void chosen(int row);
    /// A double click anywhere in the list, or Enter on a selected line.
    void opened();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void choose(int row, bool open);

    class Lines;

    Lines* model_;
    int rowBeforePress_ = -1;
    bool stepsChoose_ = false;
};
