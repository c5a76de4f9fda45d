#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

/// Attached to an item: the text that tells more of it while the pointer rests there. All items
/// share one HelpTagPopup, which is made for the first text that is shown.
class HelpTag : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Attached to items")
    QML_ATTACHED(HelpTag)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    /// After the delay of all help tags.
    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY isShownChanged)

public:
    explicit HelpTag(QObject *item);
    ~HelpTag() override;
    Q_DISABLE_COPY_MOVE(HelpTag)

    static HelpTag *qmlAttachedProperties(QObject *item) { return new HelpTag(item); }

    [[nodiscard]] const QString &text() const { return m_text; }
    void setText(const QString &text);
    [[nodiscard]] bool isShown() const { return m_isShown; }
    void setShown(bool isShown);

Q_SIGNALS:
    void textChanged();
    void isShownChanged();

private:
    void show();
    void hide();

    QString m_text;
    bool m_isShown{};
    QPointer<QObject> m_popup; ///< the one of all items, while it is shown for this one
};
