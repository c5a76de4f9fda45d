#pragma once

#include <QObject>

class QKeyEvent;

/// Sees to it that what a key repeats while it is held down counts as repeated. X11 tells a
/// repetition as a release and a press of the same moment; where the toolkit reads one before the
/// other has come, it takes the key for pressed again. For the whole application, as long as it
/// lives.
class KeyRepeats : public QObject {
    Q_OBJECT

public:
    explicit KeyRepeats(QObject *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] bool isMistaken(const QKeyEvent &press) const;

    int m_releasedKey = 0; ///< a Qt::Key; 0: none
    quint64 m_releaseTime = 0; ///< by the window system's clock
};
