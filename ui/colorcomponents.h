#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

/// The colour that a colour panel shows, by hue, saturation and brightness, all of which stay when
/// the colour itself no longer tells them: grey has no hue, black no saturation.
class ColorComponents : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal hue READ hue WRITE setHue NOTIFY changed) ///< 0 to 360
    Q_PROPERTY(qreal saturation READ saturation WRITE setSaturation NOTIFY changed) ///< 0 to 100
    Q_PROPERTY(qreal brightness READ brightness WRITE setBrightness NOTIFY changed) ///< 0 to 100
    Q_PROPERTY(QString hex READ hex NOTIFY changed)
    Q_PROPERTY(QColor hueColor READ hueColor NOTIFY changed)

public:
    using QObject::QObject;

    [[nodiscard]] qreal hue() const { return m_hue; }
    [[nodiscard]] qreal saturation() const { return m_saturation; }
    [[nodiscard]] qreal brightness() const { return m_brightness; }
    /// "#RRGGBB".
    [[nodiscard]] QString hex() const;
    /// The hue at its fullest.
    [[nodiscard]] QColor hueColor() const;

    // What the user does. Values outside the bounds become the nearest inside.

    void setHue(qreal hue);
    void setSaturation(qreal saturation);
    void setBrightness(qreal brightness);
    Q_INVOKABLE void setSaturationAndBrightness(qreal saturation, qreal brightness);
    /// Six hexadecimal digits with or without "#", blanks around them. False, and nothing changes,
    /// for any other text.
    Q_INVOKABLE bool setHexText(const QString &text);

    /// Shows a colour that came from elsewhere. Empty, or a text that is no colour: the first of
    /// the palette.
    Q_INVOKABLE void show(const QString &hex);

Q_SIGNALS:
    void changed();
    /// The user made another colour: "#RRGGBB".
    void edited(const QString &hex);

private:
    void edit(qreal hue, qreal saturation, qreal brightness);
    void take(const QColor &color);

    qreal m_hue = 0;
    qreal m_saturation = 0;
    qreal m_brightness = 100;
};
