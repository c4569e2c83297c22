#include "base/DossiersDeCommande.h"

#include "base/Const_Vrac.h"
#include "base/DossiersTemp.h"
#include "base/LieuxTemporaires.h"
#include "platform/NomsSysteme.h"
#include "platform/Presence.h"
#include "platform/VerrouDossier.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <unistd.h>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr auto ToutContenu = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

bool EstNomme(const QString& nom, const QRegularExpression& forme)
{
    return forme.match(nom).hasMatch();
}

/// A real folder of this user that nobody else may look into, as all are that a run makes for a document.
bool EstPrive(const QFileInfo& dossier)
{
    constexpr auto desAutres = QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ExeGroup |
                               QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;
    return dossier.isDir() && !dossier.isSymLink() && dossier.ownerId() == geteuid() &&
           !(dossier.permissions() & desAutres);
}

/// The copies that a run makes lie side by side.
bool NeTientQueDesFichiers(const QString& dossier)
{
    const QFileInfoList contenu = QDir(dossier).entryInfoList(ToutContenu, QDir::Unsorted);
    return std::ranges::all_of(contenu, [](const QFileInfo& info) { return info.isFile() && !info.isSymLink(); });
}

/// Deletes the folder of a run, also one whose deletion was cut short, if all of it can be held and is a run's.
void SupprimerSiLaisse(const QString& dossier)
{
    static const QRegularExpression formeDocument(u"^cat[0-9]+$"_s);
    std::vector<VerrouDossier> verrous;
    const auto tenir = [&verrous](const QString& chemin) {
        std::optional<VerrouDossier> verrou = VerrouDossier::Prendre(chemin);
        const bool tient = verrou && verrou->Tient();
        if (tient)
            verrous.push_back(std::move(*verrou));
        return tient;
    };
    const QFileInfo lieu(dossier);
    if (lieu.isSymLink() || lieu.ownerId() != geteuid() || !tenir(dossier))
        return;
    // Each of them is held by its run, too.
    for (const QFileInfo& info : QDir(dossier).entryInfoList(ToutContenu, QDir::Unsorted)) {
        const QString chemin = info.filePath();
        if (!EstNomme(info.fileName(), formeDocument) || !EstPrive(info) || !tenir(chemin) ||
            !NeTientQueDesFichiers(chemin))
            return;
    }
    SupprimerDossier(dossier, true);
}

} // namespace

QString CreerDossierDeCommande()
{
    static std::vector<VerrouDossier> tenus;
    QDir().mkpath(TempFolder);
    const QString modele = AjouterSlash(TempFolder) + u"cli-%1-XXXXXX"_s.arg(QCoreApplication::applicationPid());
    for (;;) {
        QByteArray chemin = OctetsDuChemin(modele);
        if (!mkdtemp(chemin.data()))
            return modele + u'/';
        const QString dossier = CheminDesOctets(chemin);
        std::optional<VerrouDossier> verrou = VerrouDossier::Prendre(dossier);
        // Another start that tidies up may have taken it away before it was held.
        if (!verrou || !PeutExister(dossier))
            continue;
        tenus.push_back(std::move(*verrou));
        return dossier + u'/';
    }
}

void SupprimerDossiersDeCommande()
{
    static const QRegularExpression forme(u"^cli-[0-9]+(-[A-Za-z0-9]{6})?(\\.fin)?$"_s);
    QSet<QString> dossiers;
    for (const QDir& lieu : LieuxTemporaires()) {
        for (const QString& nom : lieu.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Unsorted)) {
            if (EstNomme(nom, forme))
                dossiers.insert(lieu.filePath(nom));
        }
    }
    for (const QString& dossier : std::as_const(dossiers))
        SupprimerSiLaisse(dossier);
}
