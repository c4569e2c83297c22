// Exporters that plug-ins bring along. Who loads plug-ins stands above and installs them here.
#pragma once

#include <QList>
#include <QString>

class Categorie;

class ExporteursAjoutes
{
public:
    virtual ~ExporteursAjoutes() = default;

    struct Exporteur
    {
        QString nom;    ///< of the plug-in's file, without what follows its last point
        QString filtre; ///< its type in the save dialog: a label, "|" and a pattern
    };
    /// Registers what the folder of plug-ins holds, and tells which of it exports, in the order of the folder.
    virtual QList<Exporteur> Chercher() = 0;
    /// Has the plug-in write the document, which it may change.
    virtual void Exporter(const QString& nom, Categorie& doc, const QString& chemin) = 0;
};

/// Installs them (not owned) and returns those before. Null, as at first, for none.
ExporteursAjoutes* InstallerExporteurs(ExporteursAjoutes* exporteurs);
