// The text of a tip: it breaks a word that is wider than the tip, so that nothing is cut off.
#pragma once

#include <QLabel>

class TexteDeBulle : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    int heightForWidth(int largeur) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
