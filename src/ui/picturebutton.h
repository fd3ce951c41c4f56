#pragma once

#include <QLabel>

// A picture that serves as a button: it takes the focus, and reports clicks
// and key presses that produce a character.
class PictureButton : public QLabel
{
    Q_OBJECT

public:
    PictureButton(const QString &objectName, const QString &picture, QWidget *parent);

signals:
    void clicked();
    void keyPressed(int key);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    bool m_pressed = false;
};
