// Plug-ins at work in the windows of documents: readers, writers and commands.
#pragma once

#include "catalogue/documents/OuvreursAjoutes.h"
#include "output/ExporteursAjoutes.h"

#include <cstdint>
#include <memory>

class Categorie;
class FenetreDocument;
class PluginAuTravail;

/// The handle that a plug-in gets of a document's window: that of the frame around it, 0 for none.
int PoigneeDe(FenetreDocument& fenetre);

/// Adds the types of plug-ins to the open dialog, as long as it lives.
class OuvreursDePlugins : public OuvreursAjoutes
{
public:
    OuvreursDePlugins();
    ~OuvreursDePlugins() override;
    OuvreursDePlugins(const OuvreursDePlugins&) = delete;
    OuvreursDePlugins& operator=(const OuvreursDePlugins&) = delete;

    QList<Ouvreur> Chercher() override;
    bool Ouvrir(const QString& nom, FenetreDocument& fenetre, const QString& chemin) override;

private:
    OuvreursAjoutes* m_avant;
};

/// Adds the types of plug-ins to the export dialog, as long as it lives.
class ExporteursDePlugins : public ExporteursAjoutes
{
public:
    ExporteursDePlugins();
    ~ExporteursDePlugins() override;
    ExporteursDePlugins(const ExporteursDePlugins&) = delete;
    ExporteursDePlugins& operator=(const ExporteursDePlugins&) = delete;

    QList<Exporteur> Chercher() override;
    void Exporter(const QString& nom, Categorie& doc, const QString& chemin) override;

private:
    ExporteursAjoutes* m_avant;
};

/// What of a document tells whether a plug-in has changed something that its file holds.
class EtatAvantTravail
{
public:
    explicit EtatAvantTravail(const Categorie& doc);

    /// False for a document that has gone: events ran meanwhile.
    bool EstLa() const { return !m_vie.expired(); }
    bool AChange() const;

private:
    const Categorie& m_doc;
    std::weak_ptr<const void> m_vie;
    uint64_t m_generation;
    int m_dependante;
};

/// After a plug-in has changed a window's document: keys are renumbered, the window shows it, and it is to be saved.
void MontrerChangement(FenetreDocument& fenetre);

/// Brackets the work of a plug-in on a window's document: keys are renumbered then, the window shows what changed, and
/// what changed is to be saved.
class TravailDePlugin
{
public:
    explicit TravailDePlugin(FenetreDocument& fenetre);
    ~TravailDePlugin();
    TravailDePlugin(const TravailDePlugin&) = delete;
    TravailDePlugin& operator=(const TravailDePlugin&) = delete;

private:
    FenetreDocument& m_fenetre;
    EtatAvantTravail m_avant;
};

/// Hands the window and its document to a command; what that deletes asks as the program's own deletion does.
bool Confier(FenetreDocument& fenetre, PluginAuTravail& plugin);

/// Runs the command of the plug-in of that name on the window's document.
void LancerPlugin(const QString& nom, FenetreDocument& fenetre);
