#ifndef GLASS_H
#define GLASS_H

#include <QApplication>

#include <functional>
#include <vector>

/** A moment, in seconds. */
struct Moment
{
    static Moment now();

    double clock; ///< of a clock on the wall
    double work;  ///< that the user-interface thread has worked until then
};

/**
 * An application that knows when pictures of one window are on the glass: when what was painted for
 * an event has been handed to the window system, which is when handling the event ends.
 */
class Glass : public QApplication
{
public:
    Glass(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;

    /** Takes note of the pictures of @p window from now on: of those for which @p contents, when
     * given, has been drawn anew. */
    void watch(QWidget *window, QWidget *contents = nullptr);

    /**
     * Runs the event loop until @p isWanted is true right after a picture.
     *
     * @return whether it became so within @p patienceMs
     */
    bool waitForPicture(const std::function<bool()> &isWanted, int patienceMs);

    /** Runs the event loop until nothing is left to do: a tree reads folders long after it is
     * shown. */
    void rest();

    /** When the last picture was on the glass. */
    Moment lastPicture() const
    {
        return m_lastPicture;
    }

    /** Seconds that the user-interface thread worked for each picture since watch(): what it did
     * since the picture before, but not what it waited. */
    std::vector<double> frames() const
    {
        return m_frames;
    }

private:
    void noteDrawing(const QWidget *widget);
    void notePicture();

    QWidget *m_window;
    QWidget *m_contents;
    int m_depth; // of events in events
    bool m_isWindowDrawn;
    bool m_areContentsDrawn;
    Moment m_lastPicture;
    std::vector<double> m_frames;
    std::function<void()> m_looker; // whoever waits
};

#endif // GLASS_H
