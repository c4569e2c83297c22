#include "extensions/plugins/PluginsEnFenetre.h"

#include "catalogue/documents/FenetreDocument.h"
#include "extensions/plugins/mPlugin.h"
#include "images/SupprimerImage.h"
#include "platform/Retenue.h"

#include <QWidget>

namespace {

void Montrer(FenetreDocument& fenetre)
{
    RecalculerCles(fenetre.myqrt.Table);
    fenetre.RedrawAll(true);
}

} // namespace

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
    // Events run where it shows how far it is: what would open, close or change a document waits, and so does a signal,
    // which would leave half a file behind.
    const Retenue retenue;
    const EtatAvantTravail avant(doc);
    PluginAuTravail plugin(nom);
    if (plugin.initme(doc, 0, PluginAuTravail::Passage::ParReference))
        plugin.ExportToFile(chemin);
    if (avant.AChange())
        doc.IlFautSauver = true;
}

// ---- commands

EtatAvantTravail::EtatAvantTravail(const Categorie& doc)
    : m_doc(doc), m_vie(doc.Table.Vie()), m_generation(doc.Table.Generation()), m_dependante(doc.dependantcol)
{
}

bool EtatAvantTravail::AChange() const
{
    return EstLa() && (m_doc.Table.Generation() != m_generation || m_doc.dependantcol != m_dependante);
}

void MontrerChangement(FenetreDocument& fenetre)
{
    fenetre.myqrt.IlFautSauver = true;
    Montrer(fenetre);
}

TravailDePlugin::TravailDePlugin(FenetreDocument& fenetre) : m_fenetre(fenetre), m_avant(fenetre.myqrt) {}

TravailDePlugin::~TravailDePlugin()
{
    if (!m_avant.EstLa())
        return;
    if (m_avant.AChange())
        m_fenetre.myqrt.IlFautSauver = true;
    Montrer(m_fenetre);
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
