#include "base/DossiersTemp.h"

#include "base/ActesDuDossier.h"
#include "base/Const_Vrac.h"
#include "base/LieuxTemporaires.h"
#include "base/NomsDuDossier.h"
#include "base/Options.h"
#include "platform/NomsSysteme.h"
#include "platform/Plateforme.h"
#include "platform/Presence.h"
#include "platform/VerrouDossier.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <bitset>
#include <filesystem>
#include <map>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

QString TempFolder;

namespace {

namespace fs = std::filesystem;

constexpr int s_numeros = 500;

/// The folders that this run has drawn and not deleted, by their absolute path.
std::map<QString, VerrouDossier>& DossiersTenus()
{
    static std::map<QString, VerrouDossier> tenus;
    return tenus;
}

QString CleDossier(const QString& dossier)
{
    return QDir::cleanPath(QFileInfo(dossier).absoluteFilePath());
}

/// Documents are their user's alone.
void CreerDossierPrive(const QString& dossier)
{
    const QString chemin = QDir::cleanPath(dossier);
    QDir().mkpath(QFileInfo(chemin).path());
    QDir().mkdir(chemin, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

/// What an earlier run left behind: its folder holds something, or a rescue copy lies beside it. It is offered at the
/// next start and never mixes with a new document.
bool EstLaisse(const QString& dossier)
{
    const std::optional<QStringList> noms = NomsDuDossier(dossier);
    return (noms && !noms->isEmpty()) || PeutExister(FichierDeSecours(dossier));
}

/// Creates the folder and takes hold of it; nothing when somebody else holds it.
std::optional<VerrouDossier> CreerEtTenir(const QString& dossier)
{
    CreerDossierPrive(dossier);
    std::optional<VerrouDossier> verrou = VerrouDossier::Prendre(dossier);
    if (!verrou || PeutExister(dossier))
        return verrou;
    // Another start that tidies up took the empty folder away before it was held.
    CreerDossierPrive(dossier);
    return VerrouDossier::Prendre(dossier);
}

/// Takes folder `numero`, unless it is somebody's.
std::optional<QString> Prendre(int numero)
{
    const QString nom = QStringLiteral("cat") + QString::number(numero);
    // This looks at a name without a separator, beside the folder created below when TempFolder ends in none. It is
    // meant; what would be lost is looked at once the folder is held.
    if (QFileInfo(TempFolder + nom).isDir())
        return std::nullopt;

    const QString dossier = AjouterSlash(TempFolder) + nom + u'/';
    const QString cle = CleDossier(dossier);
    const QFileInfo avant(cle);
    if (DossiersTenus().contains(cle) || avant.isSymLink())
        return std::nullopt;
    // Also when it cannot be looked into: it may hold anything then.
    if (avant.isDir() && NomsDuDossier(cle) != QStringList())
        return std::nullopt;
    std::optional<VerrouDossier> verrou = CreerEtTenir(cle);
    if (!verrou || EstLaisse(cle))
        return std::nullopt;
    OublierActes(cle);
    DossiersTenus().emplace(cle, std::move(*verrou));
    return dossier;
}

/// Whether folders can be made there. Where they cannot, no category could be opened, made or saved.
bool EstUneBase(const QString& dossier)
{
    return QFileInfo(dossier).isDir() &&
           QTemporaryDir(AjouterSlash(dossier) + QStringLiteral("essai-XXXXXX")).isValid();
}

/// Deletes a folder with all it holds. What cannot be deleted stays, the rest goes all the same.
void Effacer(const fs::path& dossier)
{
    std::error_code erreur;
    std::vector<fs::directory_entry> entrees;
    for (fs::directory_iterator it(dossier, erreur), fin; !erreur && it != fin; it.increment(erreur))
        entrees.push_back(*it);
    for (const fs::directory_entry& entree : entrees) {
        if (fs::is_directory(entree.symlink_status(erreur)))
            Effacer(entree.path());
        else
            fs::remove(entree.path(), erreur);
    }
    fs::remove(dossier, erreur);
}

} // namespace

void InitialiserTempFolder()
{
    TempFolder = LireOption(Options::TempFolder);
    if (!EstUneBase(TempFolder)) {
        TempFolder = DossierProgramme() + QStringLiteral("temp");
        QDir().mkpath(TempFolder);
    }
    NoterLieuTemporaire(TempFolder);
}

QString FichierDeSecours(const QString& dossier)
{
    return CleDossier(dossier) + QStringLiteral(".secours");
}

QString CreerDossierTemp()
{
    if (TempFolder.isEmpty())
        InitialiserTempFolder();
    plateforme().hasard->Semer(static_cast<uint32_t>(plateforme().horloge->Maintenant().toMSecsSinceEpoch()));

    std::bitset<s_numeros> refuses;
    while (!refuses.all()) {
        const int tire = static_cast<int>(s_numeros * plateforme().hasard->Tirer());
        if (std::optional<QString> dossier = Prendre(tire + 1))
            return *dossier;
        refuses.set(static_cast<size_t>(tire));
    }
    constexpr int dernier = 20 * s_numeros;
    for (int numero = s_numeros + 1; numero < dernier; ++numero) {
        if (std::optional<QString> dossier = Prendre(numero))
            return *dossier;
    }
    // So many are not in use: the disk answers nothing but errors. Who writes there is told.
    return AjouterSlash(TempFolder) + QStringLiteral("cat") + QString::number(dernier) + u'/';
}

QString RetablirDossierTemp(const QString& dossier)
{
    const QString cle = CleDossier(dossier);
    const auto tenu = DossiersTenus().find(cle);
    if (tenu == DossiersTenus().end()) {
        CreerDossierPrive(cle);
        return dossier;
    }
    // Also when it cannot be looked at: what it holds is not given up for that.
    const bool dossierLa = PeutExister(cle) && !QFileInfo(cle).isFile();
    if (dossierLa && (!tenu->second.Tient() || tenu->second.EstCelui(cle)))
        return dossier;
    if (std::optional<VerrouDossier> verrou = CreerEtTenir(cle); verrou && NomsDuDossier(cle) == QStringList()) {
        tenu->second = std::move(*verrou);
        return dossier;
    }
    // Somebody else's folder stands there by now.
    DossiersTenus().erase(tenu);
    QString autre = CreerDossierTemp();
    QFile::rename(FichierDeSecours(cle), FichierDeSecours(autre));
    return autre;
}

QStringList DossiersTempTenus()
{
    QStringList dossiers;
    for (const auto& [dossier, verrou] : DossiersTenus())
        dossiers.append(dossier + u'/');
    return dossiers;
}

void SupprimerDossier(const QString& chemin, bool sansRecreer)
{
    const bool separateur = chemin.endsWith(u'/') || chemin.endsWith(u'\\');
    const QString dossier = separateur ? chemin.chopped(1) : chemin;
    if (dossier.isEmpty())
        return;

    // Before the folder: whoever comes between the two finds a document without unsaved changes, never the other way
    // round.
    const auto tenu = DossiersTenus().find(CleDossier(dossier));
    if (sansRecreer && tenu != DossiersTenus().end())
        QFile::remove(FichierDeSecours(dossier));

    OublierActes(dossier);
    const fs::path chemin8 = OctetsDuChemin(dossier).toStdString();
    std::error_code erreur;
    const fs::file_status etat = fs::symlink_status(chemin8, erreur);
    if (fs::is_symlink(etat))
        fs::remove(chemin8, erreur);
    else if (fs::is_directory(etat))
        Effacer(chemin8);

    if (sansRecreer) {
        if (tenu != DossiersTenus().end())
            DossiersTenus().erase(tenu);
        return;
    }
    CreerDossierPrive(dossier);
    if (tenu != DossiersTenus().end())
        tenu->second = VerrouDossier::Prendre(tenu->first).value_or(VerrouDossier());
}
