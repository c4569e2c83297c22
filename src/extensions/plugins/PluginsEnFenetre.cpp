#include "extensions/plugins/PluginsEnFenetre.h"

#include "catalogue/documents/FenetreDocument.h"
#include "extensions/plugins/mPlugin.h"
#include "images/SupprimerImage.h"

#include <QWidget>

int PoigneeDe(FenetreDocument& fenetre)
{
    // A window of its own for a widget inside the frame would change how it is drawn.
    const auto* widget = dynamic_cast<const QWidget*>(&fenetre);
    return widget ? static_cast<int>(widget->effectiveWinId()) : 0;
}

// ---- readers

OuvreursDePlugins::OuvreursDePlugins() : m_avant(InstallerOuvreurs(this)) {}

OuvreursDePlugins::~OuvreursDePlugins()
{
    InstallerOuvreurs(m_avant);
}

QList<OuvreursAjoutes::Ouvreur> OuvreursDePlugins::Chercher()
{
    QList<Ouvreur> ouvreurs;
    for (const TypeDePlugin& type : TypesDOuverture())
        ouvreurs.append({type.nom, type.filtre});
    return ouvreurs;
}

bool OuvreursDePlugins::Ouvrir(const QString& nom, FenetreDocument& fenetre, const QString& chemin)
{
    PluginAuTravail plugin(nom);
    if (plugin.initme(fenetre.myqrt, PoigneeDe(fenetre), PluginAuTravail::Passage::ParValeur))
        plugin.openFile(chemin);
    if (plugin.EstAbandonne()) {
        // The window goes without a question.
        fenetre.myqrt.IlFautSauver = false;
        return false;
    }
    RecalculerCles(fenetre.myqrt.Table);
    return true;
}

// ---- writers

ExporteursDePlugins::ExporteursDePlugins() : m_avant(InstallerExporteurs(this)) {}

ExporteursDePlugins::~ExporteursDePlugins()
{
    InstallerExporteurs(m_avant);
}

QList<ExporteursAjoutes::Exporteur> ExporteursDePlugins::Chercher()
{
    QList<Exporteur> exporteurs;
    for (const TypeDePlugin& type : TypesDExport())
        exporteurs.append({type.nom, type.filtre});
    return exporteurs;
}

void ExporteursDePlugins::Exporter(const QString& nom, Categorie& doc, const QString& chemin)
{
    const std::weak_ptr<const void> vie = doc.Table.Vie();
    const uint64_t avant = doc.Table.Generation();
    PluginAuTravail plugin(nom);
    if (plugin.initme(doc, 0, PluginAuTravail::Passage::ParReference))
        plugin.ExportToFile(chemin);
    // Events ran meanwhile, where it shows how far it is.
    if (!vie.expired() && doc.Table.Generation() != avant)
        doc.IlFautSauver = true;
}

// ---- commands

TravailDePlugin::TravailDePlugin(FenetreDocument& fenetre)
    : m_fenetre(fenetre), m_vie(fenetre.myqrt.Table.Vie()), m_generation(fenetre.myqrt.Table.Generation())
{
}

TravailDePlugin::~TravailDePlugin()
{
    // Events ran meanwhile.
    if (m_vie.expired())
        return;
    Categorie& doc = m_fenetre.myqrt;
    if (doc.Table.Generation() != m_generation)
        doc.IlFautSauver = true;
    RecalculerCles(doc.Table);
    m_fenetre.RedrawAll(true);
}

bool Confier(FenetreDocument& fenetre, PluginAuTravail& plugin)
{
    plugin.DemanderPourImages(DemanderSupprImg);
    return plugin.initme(fenetre.myqrt, PoigneeDe(fenetre), PluginAuTravail::Passage::ParReference);
}

void LancerPlugin(const QString& nom, FenetreDocument& fenetre)
{
    const TravailDePlugin travail(fenetre);
    PluginAuTravail plugin(nom);
    if (Confier(fenetre, plugin))
        plugin.showForm();
}
