#pragma once

#include "app/files/PictureOptions.h"
#include "app/plot/FrameGrip.h"
#include "app/plot/FrameMessage.h"
#include "app/plot/FrameView.h"
#include "app/plot/PageDisplay.h"
#include "app/plot/ProbedPlace.h"
#include "app/plot/SeenCell.h"
#include "app/plot/ViewHistory.h"
#include "kernel/session/Session.h"

#include <QElapsedTimer>
#include <QImage>
#include <QWidget>
#include <vtkGenericOpenGLRenderWindow.h>
#include <vtkNew.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>

class QVTKOpenGLNativeWidget;
class QHelpEvent;
class QTimer;

namespace veldraw::app {

class FieldView;
class PageOnScreen;
class PageOverlay;
class PlaceSearch;

/// Shows the active page of a session: the sheet of paper, which fills the widget, and its frames with their plots.
///
///     auto* const page = new PageView(session, &window); // follows the session from now on
///     page->fitAllFrames();
///
/// Events of the session only mark frames as out of date. They are drawn once in the next turn of the event loop, however
/// many events there were, unless the session has drawing suspended. Large geometries are computed in the background; their
/// frames say so meanwhile.
///
/// | mouse | keys | effect |
/// |---|---|---|
/// | left drag | arrows | rotates a 3D plot, moves any other |
/// | left drag with Ctrl | | rotates a 3D plot around the place under the mouse |
/// | left drag with Shift | | in a line plot: chooses the box that is shown from then on |
/// | middle drag | | moves |
/// | right drag, wheel | plus, minus | zooms |
/// | double click | Home | fits |
/// | press | | makes the frame the active one |
/// | click | | picks the zone under the mouse, and no other |
/// | click with Ctrl | | adds the zone to the picks, or removes it |
/// | click with Shift | | probes the place under the mouse, and picks nothing |
/// | click with the right button | Menu | asks for a menu |
/// | left drag of a header | arrows with Alt and Shift | moves the frame |
/// | left drag of an edge or a corner | arrows with Ctrl and Shift | makes the frame larger or smaller |
/// | double click on a header, click on its button | | shows the active frame alone, or all of them again |
/// | resting over a plot | | shows the values of the point under the mouse; in a field plot zone, position, index or cell, and contour |
class PageView : public QWidget
{
    Q_OBJECT

public:
    /// @param session must outlive this widget
    explicit PageView(kernel::Session& session, QWidget* parent = nullptr);
    ~PageView() override;

    void fitActiveFrame();
    void fitAllFrames();

    /// Looks at the plot of the active frame from a side. Does nothing for a plot that is not in space.
    void lookFrom(ViewSide side);

    /// Takes the active frame one view back, or on again, as far as its user has changed it. @return false where there is none
    bool goToView(ViewStep step);

    /// Keeps the view of the active frame as the one that pasteView() gives to others. @return false where it has none
    bool copyView();
    bool pasteView();

    /// Keeps the view of the active frame for recallView(). @return its number from 1, or 0 where there is none to keep or no more room
    int rememberView();
    bool recallView(int number);
    static constexpr int mostRemembered = 9;

    /// Whether all plots of a kind follow the one that the user moves. Not at first; they follow the active one at once.
    void linkViews(bool isOn);

    /// Fits the view of one frame at the next refresh. Does nothing for an unknown frame.
    void fitFrame(kernel::UniqueId frame);

    /// Whether the active frame alone is shown, as large as the widget. The page and its frames stay as they are.
    void maximizeFrame(bool isOn);
    bool isMaximized() const { return m_isMaximized; }

    /// Schedules a refresh for the next turn of the event loop.
    void scheduleRefresh();

    /// The picture on the screen, in device pixels, after a refresh and the end of all background computations.
    QImage grabImage();

    /// The page as a picture for a document: plots and messages without borders, headers and marks of picked zones, placed as they
    /// would be on a screen of that size. The screen does not change. @return a null image where there is no memory for it
    QImage takePicture(PictureOptions const& options = {});

    /// Paints the same picture, with lines and letters instead of pixels; scenes alone are pixels, as many as the scale says.
    /// @param painter in logical pixels, from the top left corner of the picture
    void paintPicture(QPainter& painter, PictureOptions const& options);

    /// Says on a page without frames that a file is being opened, at once; without a name, how to begin.
    void showOpening(QString const& fileName);

    /// Whether parts of the picture are still being computed in the background.
    bool isDrawing() const;

    /// The sentence that says what is missing in a frame; empty for an unknown frame and when nothing is.
    QString message(kernel::UniqueId frame) const;

    /// The remark about a picture in which nothing is missing; usually empty.
    QString remark(kernel::UniqueId frame) const;

    /// The rectangle of a frame's plot, below header and remark, in logical pixels of this widget; null for an unknown frame.
    QRect plotArea(kernel::UniqueId frame) const;

    /// The plot in a frame, after a refresh; null if there is none, as in a frame without data.
    FrameView* frameView(kernel::UniqueId frame);

    /// Draws everything that is out of date now, unless the session has drawing suspended.
    void refresh();

    /// Whether a click without keys probes the place under the mouse too, and picks nothing. Not at first.
    void probeByClick(bool isOn) { m_probesByClick = isOn; }

    /// Marks these places, and no others, in the frames in which they were probed.
    void markProbes(std::vector<ProbedPlace> places);

    QSize sizeHint() const override { return {960, 720}; }

Q_SIGNALS:
    /// The user has pointed at a place of a zone, of which everything is to be told.
    void probed(veldraw::app::ProbedPlace const& place);

    /// The active frame is shown alone now, or all of them are.
    void maximized(bool isOn);

    /// The user asks what can be done here. @param position on the screen @param zone one-based number of the zone of the active frame that is
    /// seen there, or 0
    void menuWanted(QPoint const& position, int zone);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Slot
    {
        std::unique_ptr<FrameView> view; ///< null for a plot type that is not drawn
        PlotType_e plotType = PlotType_Sketch;
        FrameMessage message;
        QRect area;
        QRect content; ///< the frame below its header
        QRect picture; ///< the part of the content that the view gets
        bool isStale = true;
        bool isToFit = false;
        ViewHistory views;

        bool hidesPicture() const { return message.replacesPicture && !message.sentence.isEmpty(); }
    };

    void createCanvas();
    void onEvent(kernel::StateChangeEvent const& event);
    void markFrames(kernel::StateChangeEvent const& event);
    void markAll();
    void markReady(kernel::UniqueId frame);
    std::unique_ptr<FrameView> createView(kernel::Frame const& frame);

    void bringUpToDate();
    /// What the page is laid out on while a picture is taken.
    struct Sheet
    {
        QSize size; // logical pixels
        double pixelRatio = 1.0;
        bool activeFrameOnly = false;
        bool isTransparent = false; // else white
    };

    QRect sheetRect() const { return m_sheet ? QRect(QPoint(), m_sheet->size) : rect(); }
    double pixelRatio() const { return m_sheet ? m_sheet->pixelRatio : devicePixelRatioF(); }
    bool isTransparent() const { return m_sheet && m_sheet->isTransparent; }
    void layOutOn(std::optional<Sheet> const& sheet);
    QImage pictureOnSheet();
    void paintOnSheet(QPainter& painter);
    void onSheet(PictureOptions const& options, std::function<void()> const& work);
    QRectF onPaper(vtkRenderer& renderer) const;
    QImage readWindow();
    void finishDrawing();
    void giveUpDrawing(std::exception const& failure);
    void syncFrames();
    PageOnScreen pageOnScreen(kernel::Page const& page) const;
    void layOut();
    void placePicture(Slot& slot) const;
    void updateStale();
    void markPicks();
    void updatePlot(kernel::Frame const& frame, Slot& slot);
    void takeOff(FrameView& view);
    void orderRenderers();
    ViewArea areaOf(Slot const& slot) const;
    void updateOverlay();

    std::shared_ptr<kernel::Frame> frameAt(QPoint const& position) const;
    QPointF inPicture(Slot const& slot, QPointF const& position) const;
    FrameView* shownView(kernel::UniqueId frame) const;
    void dragInView(FrameView& view, QPointF const& from, QPointF const& to, Qt::KeyboardModifiers modifiers);
    void pickAt(QPoint const& position, bool isAdding);
    void beginDrag(FrameView& view, QPointF const& from, Qt::KeyboardModifiers modifiers);
    static bool movesByKey(int key);
    void moveByKey(FrameView& view, int key);

    /// Ways in which the user changes a view; ways of one kind in quick succession are one change.
    enum class Gesture
    {
        Drag,
        Wheel,
        Key,
        Command
    };
    void keepView(kernel::UniqueId frame, Gesture gesture);
    void followView(kernel::UniqueId frame);
    bool showView(kernel::UniqueId frame, ViewPoint const& view);
    std::optional<ViewPoint> activeView();

    bool grip(QMouseEvent const& event);
    void showGrip(QPoint const& at);
    void dragFrame(QPointF const& to, Qt::KeyboardModifiers modifiers);
    void endGrip(QPoint const& at);
    void dropGrip();
    bool placeFrameByKey(QKeyEvent const& event);
    void placeFrame(kernel::Frame const& frame, kernel::Rectangle const& place);
    CatchingLines linesBeside(kernel::UniqueId frame) const;
    bool isOnButton(kernel::UniqueId frame, QPoint const& at) const;
    void askForMenu(QPoint const& at);

    void dragBox(QPointF const& to);
    void zoomIntoBox(QPointF const& to);
    void setAxes(kernel::Frame const& frame, std::map<kernel::LineAxisKind, kernel::LineAxis> const& axes,
                 char const* step);
    void freeAxes(kernel::Frame const& frame);

    void showTip(QHelpEvent const& event);
    void searchForTip(kernel::UniqueId frame, FieldView const& field, QHelpEvent const& event);
    std::vector<std::pair<int, QPointF>> probesIn(kernel::UniqueId frame) const;
    void probeAt(QPoint const& position);
    void tellAt(QPoint const& position, QString const& tip);
    void dropTip();
    void dropTipBeside(QPoint const& mouse);
    std::optional<ZonePlace> placeOf(kernel::UniqueId frame, SeenQuestion const& question,
                                     std::optional<SeenCell> const& seen) const;

    kernel::Session& m_session;
    kernel::EventHub::Subscription m_subscription = 0;
    PageDisplay m_display;
    QVTKOpenGLNativeWidget* m_canvas = nullptr; // null where Qt has no screen to draw on
    PageOverlay* m_overlay = nullptr;
    QTimer* m_timer = nullptr;
    vtkNew<vtkGenericOpenGLRenderWindow> m_window;
    vtkNew<vtkRenderer> m_desk;
    std::map<kernel::UniqueId, Slot> m_slots;
    std::vector<FrameView*> m_drawn; // the plots in the window, in their order
    QString m_opening;               // name of the file
    std::optional<Sheet> m_sheet;    // without a value: the widget

    kernel::UniqueId m_draggedFrame = 0;
    QPointF m_pressPosition;
    QPointF m_dragPosition;
    Qt::MouseButton m_dragButton = Qt::NoButton;
    bool m_isDragging = false; // the mouse has moved too far for a click
    bool m_isBox = false;      // the drag chooses a box
    FrameGrip m_grip;          // the drag moves or sizes a frame
    kernel::Rectangle m_placeOfDrag;
    bool m_isMaximized = false;

    kernel::UniqueId m_keptFrame = 0; // whose view was kept last
    Gesture m_keptGesture = Gesture::Command;
    QElapsedTimer m_sinceKept;
    bool m_areLinked = false;
    std::optional<ViewPoint> m_copiedView;
    std::vector<ViewPoint> m_rememberedViews;

    PlaceSearch* m_tipSearch = nullptr;
    QPoint m_tipPosition;
    PlaceSearch* m_probeSearch = nullptr;
    bool m_probesByClick = false;
    std::vector<ProbedPlace> m_probes; // that are marked
};

} // namespace veldraw::app
