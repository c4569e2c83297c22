// A panel in the middle of a document's table that asks for patience ("wait", "fOuvrir").
#pragma once

#include "catalogue/texte/QrtClass.h"

#include <QFrame>

class PanneauDAttente : public QFrame, public PanneauAttente
{
    Q_OBJECT

public:
    using QFrame::QFrame;

    /// Shown, the panel is drawn before the call returns: the work that follows keeps the event loop waiting.
    void Montrer(bool visible) override;
};
