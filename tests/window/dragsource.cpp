// A file manager for tests: a small window out of which one drags the files named on the command
// line. Says "ready" once it can be seen, during a drag whether what is under the pointer would
// take the files, and after it what the target did with them.

#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QRasterWindow>
#include <QUrl>

#include <cstdio>

namespace {

void say(const char *words)
{
    std::puts(words);
    std::fflush(stdout);
}

class DragSource final : public QRasterWindow {
public:
    explicit DragSource(const QStringList &paths)
    {
        for (const QString &path : paths)
            m_urls.append(QUrl::fromLocalFile(path));
        setTitle(QStringLiteral("Drag Source"));
        setFlags(Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint);
        setGeometry(20, 20, 100, 60);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter(this).fillRect(QRect(QPoint(), size()), Qt::darkCyan);
    }

    void exposeEvent(QExposeEvent *event) override
    {
        QRasterWindow::exposeEvent(event);
        if (isExposed() && !std::exchange(m_isReady, true))
            say("ready");
    }

    void mouseMoveEvent(QMouseEvent *event) override
    {
        if (!event->buttons().testFlag(Qt::LeftButton) || std::exchange(m_isDragging, true))
            return;
        auto *drag = new QDrag(this); // Qt ends it when the target has what it wants
        auto *data = new QMimeData; // the drag will own it
        data->setUrls(m_urls);
        drag->setMimeData(data);
        connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) {
            say(action == Qt::IgnoreAction ? "unwanted" : "accepted");
        });
        say(drag->exec(Qt::CopyAction | Qt::MoveAction) == Qt::CopyAction ? "copied" : "refused");
        m_isDragging = false;
    }

private:
    QList<QUrl> m_urls;
    bool m_isReady = false;
    bool m_isDragging = false;
};

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    DragSource source(QCoreApplication::arguments().sliced(1));
    source.show();
    return QGuiApplication::exec();
}
