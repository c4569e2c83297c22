#include "kit/DialoguesEnFenetre.h"

#include "kit/FenetreDessous.h"
#include "platform/NomsSysteme.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QListView>
#include <QSize>
#include <QTreeView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize PremiereTaille(860, 520);
constexpr int LargeurDesLieux = 240; // the most that the list of places takes by itself

/// A line for the list of types. The pattern of all files is "*" here: "*.*" would hide names without a point.
QString FiltreQt(const TypeDeFichier& type)
{
    QStringList motifs = type.motifs.split(u';', Qt::SkipEmptyParts);
    motifs.replaceInStrings(u"*.*"_s, u"*"_s);
    return type.libelle + u" ("_s + motifs.join(u' ') + u')';
}

/// Starts in a folder, or beside the file that is proposed. A folder that is gone leaves the choice to the system.
void Partir(QFileDialog& dialogue, const QString& depart)
{
    if (depart.isEmpty())
        return;
    const QFileInfo lieu(depart);
    if (EstDossier(depart)) {
        dialogue.setDirectory(depart);
        return;
    }
    if (EstDossier(lieu.path()))
        dialogue.setDirectory(lieu.path());
    if (!lieu.fileName().isEmpty())
        dialogue.selectFile(lieu.fileName());
}

/// Dates and places are seen whole from the first; Qt's own dialog is narrow, with a list of places that scrolls. The
/// system's dialog has no such parts.
void DonnerDeLaPlace(QFileDialog& dialogue)
{
    dialogue.resize(PremiereTaille);
    if (const auto* fichiers = dialogue.findChild<QTreeView*>(u"treeView"_s))
        fichiers->header()->setStretchLastSection(true);
    if (auto* lieux = dialogue.findChild<QListView*>(u"sidebar"_s)) {
        const int largeur = lieux->sizeHintForColumn(0) + 2 * lieux->frameWidth();
        lieux->setMinimumWidth(qMin(largeur, LargeurDesLieux));
    }
}

/// The 1-based type. Qt's dialog tells the label alone, others the line that they were given; one that tells nothing
/// leaves the type that was asked for.
int TypeChoisi(const QFileDialog& dialogue, const DemandeFichier& demande)
{
    const QString choisi = dialogue.selectedNameFilter();
    const auto est = [&](const TypeDeFichier& type) {
        return choisi == FiltreQt(type) || choisi == type.libelle.trimmed();
    };
    const auto trouve = std::ranges::find_if(demande.types, est);
    return trouve == demande.types.end() ? demande.type : static_cast<int>(trouve - demande.types.begin()) + 1;
}

std::optional<ReponseFichier> Demander(QFileDialog& dialogue, const DemandeFichier& demande)
{
    // The labels say enough; they stand as they are, without the patterns behind them.
    dialogue.setOption(QFileDialog::HideNameFilterDetails);
    DonnerDeLaPlace(dialogue);
    QStringList filtres;
    for (const TypeDeFichier& type : demande.types)
        filtres.append(FiltreQt(type));
    dialogue.setNameFilters(filtres);
    dialogue.selectNameFilter(filtres.value(demande.type - 1));
    Partir(dialogue, demande.depart);
    if (dialogue.exec() != QDialog::Accepted)
        return std::nullopt;
    QStringList choisis = dialogue.selectedFiles();
    std::ranges::transform(choisis, choisis.begin(), RetrouverChemin);
    return ReponseFichier{choisis, TypeChoisi(dialogue, demande)};
}

} // namespace

DialoguesEnFenetre::DialoguesEnFenetre() : m_precedent(InstallerPresentateur(this)) {}

DialoguesEnFenetre::~DialoguesEnFenetre()
{
    InstallerPresentateur(m_precedent);
}

std::optional<ReponseFichier> DialoguesEnFenetre::Ouvrir(const DemandeFichier& demande)
{
    QFileDialog dialogue(FenetreDessous(), demande.titre);
    dialogue.setFileMode(demande.plusieurs ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    return Demander(dialogue, demande);
}

std::optional<ReponseFichier> DialoguesEnFenetre::Enregistrer(const DemandeFichier& demande)
{
    QFileDialog dialogue(FenetreDessous(), demande.titre);
    dialogue.setAcceptMode(QFileDialog::AcceptSave);
    dialogue.setFileMode(QFileDialog::AnyFile);
    // The flow asks by itself, and about a read-only file too.
    dialogue.setOption(QFileDialog::DontConfirmOverwrite);
    return Demander(dialogue, demande);
}

QString DialoguesEnFenetre::Dossier(const QString& depart, const QString& titre)
{
    QFileDialog dialogue(FenetreDessous(), titre);
    dialogue.setFileMode(QFileDialog::Directory);
    dialogue.setOption(QFileDialog::ShowDirsOnly);
    const std::optional<ReponseFichier> reponse = Demander(dialogue, {.titre = titre, .depart = depart, .types = {}});
    return reponse ? reponse->fichiers.value(0) : QString();
}
