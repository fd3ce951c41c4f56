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

void PictureButton::mousePressEvent(QMouseEvent *event)
{
    m_pressed = event->button() == Qt::LeftButton;
}

void PictureButton::mouseReleaseEvent(QMouseEvent *event)
{
    // A click is a press and a release both on this picture: a release whose
    // press went elsewhere, or was discarded, clicks nothing.
    const bool click = m_pressed && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
    m_pressed = false;
    if (click)
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
