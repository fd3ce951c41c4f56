#pragma once

class QComboBox;
class QKeyEvent;

// Focus feedback: the box with the focus shows white text on dark teal.
void HighlightCombo(QComboBox *box);
void UnhighlightCombo(QComboBox *box);

// Enter moves the focus on as Tab does; the key still reaches the box.
void EnterAsTab(QComboBox *box, const QKeyEvent *event);
