// One document window as the flows see it: the open and save flows work on this, the shell shows it, tests stand in.
#pragma once

#include "base/Fenetres.h"
#include "catalogue/QrtClass.h"

#include <QString>

/// The window of one open category. It owns the document, the table that myqrt.MyLV points to, the panels, and the
/// folder myqrt.TmpFolder, which goes with it.
class FenetreDocument : public FenetreOuverte
{
public:
    QrtClass myqrt;
    QString Tag; ///< key of the window, drawn when it is loaded: see NouveauTag

    virtual QString Caption() const = 0;
    virtual void SetCaption(const QString& titre) = 0;

    /// Turns the images panel on or off. A window comes with it on.
    virtual void mAfficherImages_Click() = 0;
};

/// A key for a window: "a" and a number drawn from the time of day and chance.
QString NouveauTag();
