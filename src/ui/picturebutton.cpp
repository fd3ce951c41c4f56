#include "picturebutton.h"

#include <QKeyEvent>
#include <QMouseEvent>

PictureButton::PictureButton(const QString &objectName, const QString &picture, QWidget *parent)
    : QLabel(parent)
{
    setObjectName(objectName);
    setPixmap(QPixmap(picture));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

void PictureButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit clicked();
}

void PictureButton::keyPressEvent(QKeyEvent *event)
{
    // Like a key press event of the platform: keys that type something,
    // Enter, Escape and Backspace included; arrows and function keys do not.
    if (event->text().isEmpty()) {
        QLabel::keyPressEvent(event);
        return;
    }
    emit keyPressed(event->key());
}
