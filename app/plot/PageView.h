#pragma once

#include "app/plot/FrameNotice.h"
#include "app/plot/FrameView.h"
#include "app/plot/PageDisplay.h"
#include "kernel/session/Session.h"

#include <QImage>
#include <QWidget>
#include <vtkGenericOpenGLRenderWindow.h>
#include <vtkNew.h>

#include <map>
#include <memory>

class QVTKOpenGLNativeWidget;
class QTimer;

namespace veldraw::app {

class PageOverlay;

/// The active page: its frames as they lie on the paper, each with its plot. The paper fills the widget.
///
/// Listens to the session by itself. An event only marks what is out of date; the picture is brought up to date once in the
/// next turn of the event loop, however many events came, and not while the session has drawing suspended. Large shapes are worked out
/// aside; their frames say so until they are there. Left drag turns (3D) or moves (2D, lines), middle drag moves, right
/// drag and wheel enlarge, a double click fits; the same by the keys: arrows, plus, minus and Home. A press in a frame makes it
/// the active one. A click picks the zone under the mouse and nothing else, or nothing where there is none; with Ctrl it adds
/// the zone to what is picked, or takes it out.
class PageView : public QWidget
{
    Q_OBJECT

public:
    /// @param session must outlive this widget
    explicit PageView(kernel::Session& session, QWidget* parent = nullptr);
    ~PageView() override;

    void fitActiveFrame();
    void fitAllFrames();

    /// Fits the view of one frame once the picture is brought up to date next; unknown frames are left out.
    void fitFrame(kernel::UniqueId frame);

    /// Has the picture brought up to date in the next turn of the event loop.
    void scheduleRefresh();

    /// What is on the screen, in device pixels, brought up to date first; waits for what is being worked out aside.
    QImage grabImage();

    /// The page for a document: its plots in their places, as large as on the screen, and what has to be said about them, but no
    /// borders, no headers and no marks of what is picked. What is on the screen stays as it is.
    QImage takePicture();

    /// Whether parts of the picture are being worked out aside.
    bool isDrawing() const;

    /// The sentence shown in a frame, empty when nothing is missing or there is no such frame.
    QString notice(kernel::UniqueId frame) const;

    /// What is said of a picture that lacks nothing, empty as a rule.
    QString remark(kernel::UniqueId frame) const;

    /// The plot in a frame below its header and a remark, logical pixels of this widget; null for an unknown frame.
    QRect plotArea(kernel::UniqueId frame) const;

    /// The plot in a frame, null when there is none, as in a frame without data. Brought up to date first.
    FrameView* frameView(kernel::UniqueId frame);

    /// Brings everything up to date at once, unless the session has drawing suspended.
    void refresh();

    QSize sizeHint() const override { return {960, 720}; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Slot
    {
        std::unique_ptr<FrameView> view; ///< null until the plot type is one that draws
        PlotType_e plotType = PlotType_Sketch;
        FrameNotice notice;
        QRect area;
        QRect content; ///< what the frame has below its header
        QRect picture; ///< what of that the view has
        bool isStale = true;
        bool isToFit = false;

        bool hidesPicture() const { return notice.coversPicture && !notice.sentence.isEmpty(); }
    };

    void createCanvas();
    void onEvent(kernel::StateChangeEvent const& event);
    void markFrames(kernel::StateChangeEvent const& event);
    void markAll();
    void markReady(kernel::UniqueId frame);
    std::unique_ptr<FrameView> createView(kernel::Frame const& frame);

    void bringUpToDate();
    void showBare(bool isBare);
    void giveUpDrawing(std::exception const& failure);
    void syncFrames();
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
    bool moveByKey(FrameView& view, int key);

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
    bool m_isBare = false;           // without borders and headers, while a picture is taken

    kernel::UniqueId m_draggedFrame = 0;
    QPointF m_pressPosition;
    QPointF m_dragPosition;
    Qt::MouseButton m_dragButton = Qt::NoButton;
    bool m_isDragging = false; // the mouse has gone so far that it is no click any more
};

} // namespace veldraw::app
