#include "ui/wheelscrolling.h"

void WheelScrolling::setTarget(QQuickItem *target)
{
    if (m_target == target)
        return;
    m_target = target;
    target->setAcceptedMouseButtons(Qt::NoButton);
    target->setFiltersChildMouseEvents(false);
    Q_EMIT targetChanged();
}
