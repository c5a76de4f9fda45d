#include "ui/helptag.h"

#include <QQmlComponent>
#include <QQmlEngine>

namespace {

// Made when the first text is shown: the program starts without it.
QObject *sharedPopup(const QObject *item)
{
    const QString name = QStringLiteral("helpTagPopup");
    QQmlEngine *const engine = qmlEngine(item);
    auto *popup = engine->findChild<QObject *>(name, Qt::FindDirectChildrenOnly);
    if (!popup) {
        QQmlComponent component(
            engine, QUrl(QStringLiteral("qrc:/qt/qml/Nestlet/Companion/HelpTagPopup.qml")));
        popup = component.create();
        popup->setObjectName(name);
        popup->setParent(engine);
    }
    return popup;
}

// Whether another item has taken the popup.
bool isTaken(const QObject *popup, const QObject *item)
{
    const auto *const owner = popup->property("parent").value<QQuickItem *>();
    return owner && owner != item;
}

} // namespace

HelpTag::HelpTag(QObject *item)
    : QObject(item)
{
}

HelpTag::~HelpTag()
{
    hide();
}

void HelpTag::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    if (m_isShown)
        show();
    Q_EMIT textChanged();
}

void HelpTag::setShown(bool isShown)
{
    if (m_isShown == isShown)
        return;
    m_isShown = isShown;
    isShown ? show() : hide();
    Q_EMIT isShownChanged();
}

void HelpTag::show()
{
    m_popup = sharedPopup(parent());
    m_popup->setProperty("parent", QVariant::fromValue(qobject_cast<QQuickItem *>(parent())));
    m_popup->setProperty("text", m_text);
    m_popup->setProperty("visible", true);
}

void HelpTag::hide()
{
    if (m_popup && !isTaken(m_popup, parent()))
        m_popup->setProperty("visible", false);
    m_popup = nullptr;
}
