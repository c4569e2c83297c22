// Readers of foreign files that plug-ins bring along. Who loads plug-ins stands above and installs them here.
#pragma once

#include <QList>
#include <QString>

class FenetreDocument;

class OuvreursAjoutes
{
public:
    virtual ~OuvreursAjoutes() = default;

    struct Ouvreur
    {
        QString nom;    ///< of the plug-in's file, without what follows its last point
        QString filtre; ///< its type in the open dialog: a label, "|" and a pattern
    };
    /// Registers what the folder of plug-ins holds, and tells which of it opens files, in the order of the folder.
    virtual QList<Ouvreur> Chercher() = 0;
    /// Has the plug-in read the file into the document of a new window. False when the user changed his mind: the
    /// window is to go. One whose reading failed stays, with what was read.
    virtual bool Ouvrir(const QString& nom, FenetreDocument& fenetre, const QString& chemin) = 0;
};

/// Installs them (not owned) and returns those before. Null, as at first, for none.
OuvreursAjoutes* InstallerOuvreurs(OuvreursAjoutes* ouvreurs);
