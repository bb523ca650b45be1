#pragma once

#include <QCoreApplication>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <vtkContextItem.h>
#include <vtkNew.h>
#include <vtkPlot.h>
#include <vtkSmartPointer.h>
#include <vtkTextProperty.h>

#include <vector>

namespace veldraw::app {

/// The names of the curves of a line plot, each beside a piece of its curve, above the chart.
///
/// Names stand one below the other, broken into lines where they are too wide; many short ones stand in columns. VTK's own legend
/// has one line for each curve and cuts what is wider. No more than two fifths of the area are taken: only where that is not enough
/// names lose their middle, and then the last ones are merely counted.
class CurveLegend : public vtkContextItem
{
    Q_DECLARE_TR_FUNCTIONS(veldraw::app::CurveLegend)

public:
    vtkTypeMacro(CurveLegend, vtkContextItem) static CurveLegend* New();

    struct Curve
    {
        QString name;
        vtkSmartPointer<vtkPlot> plot; ///< paints its piece
    };

    void show(std::vector<Curve> curves);

    /// @param area device pixels of the frame; the legend stands at its top
    void place(QSizeF const& area, double pixelRatio);

    /// Height of the legend at the top of the area, device pixels; 0 without curves and without room.
    double height() const;

    /// The shown texts, column by column, with line ends where they are broken.
    QStringList shownNames() const;

    bool Paint(vtkContext2D* painter) override;

    CurveLegend(CurveLegend const&) = delete;
    CurveLegend& operator=(CurveLegend const&) = delete;

protected:
    CurveLegend();
    ~CurveLegend() override = default;

private:
    struct Cell
    {
        QString text;
        vtkPlot* plot;    ///< null: the text stands for several
        QSizeF size = {}; ///< of the text
    };

    void layOut();
    bool list(QSizeF const& room, int mostLines, bool canShorten);
    bool placeInColumns(QSizeF const& room);
    void countTheRest(QSizeF const& room);
    void arrange(std::size_t columns);
    std::size_t rowsIn(QSizeF const& room) const;
    double textWidth(QSizeF const& room, std::size_t columns) const;
    double widestName() const;
    double contentHeight() const;
    void paintCell(vtkContext2D& painter, Cell const& cell, double left, double middle) const;

    std::vector<Curve> m_curves;
    QSizeF m_area;
    double m_ratio = 1.0;
    std::vector<Cell> m_cells;        // column by column
    std::vector<double> m_rowHeights; // of all columns
    double m_columnWidth = 0.0;
    QRectF m_box; // empty: nothing is shown
    vtkNew<vtkTextProperty> m_text;
};

} // namespace veldraw::app
