// The temporary folders of documents: drawing, holding and deleting them.
#include "base/Const_Vrac.h"

#include "base/Options.h"
#include "platform/Plateforme.h"
#include "platform/VerrouDossier.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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

/// Takes folder `numero`, unless it is somebody's.
std::optional<QString> Prendre(int numero)
{
    const QString nom = QStringLiteral("cat") + QString::number(numero);
    // This looks at a name without a separator, beside the folder created below when TempFolder ends in none. It is
    // meant: folders left over from an earlier run are used again, as they always were.
    if (QFileInfo(TempFolder + nom).isDir())
        return std::nullopt;

    const QString dossier = AjouterSlash(TempFolder) + nom + u'/';
    const QString cle = CleDossier(dossier);
    if (DossiersTenus().contains(cle) || QFileInfo(cle).isSymLink())
        return std::nullopt;
    CreerDossierPrive(dossier);
    std::optional<VerrouDossier> verrou = VerrouDossier::Prendre(cle);
    if (!verrou)
        return std::nullopt;
    DossiersTenus().emplace(cle, std::move(*verrou));
    return dossier;
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
    TempFolder = LireOption(QStringLiteral("TempFolder")).toString();
    if (QFileInfo(TempFolder).isDir())
        return;
    TempFolder = DossierProgramme() + QStringLiteral("temp");
    QDir().mkpath(TempFolder);
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
    for (int numero = s_numeros + 1;; ++numero) {
        if (std::optional<QString> dossier = Prendre(numero))
            return *dossier;
    }
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

    const fs::path chemin8 = QFile::encodeName(dossier).toStdString();
    std::error_code erreur;
    const fs::file_status etat = fs::symlink_status(chemin8, erreur);
    if (fs::is_symlink(etat))
        fs::remove(chemin8, erreur);
    else if (fs::is_directory(etat))
        Effacer(chemin8);

    const auto tenu = DossiersTenus().find(CleDossier(dossier));
    if (sansRecreer) {
        if (tenu != DossiersTenus().end())
            DossiersTenus().erase(tenu);
        return;
    }
    CreerDossierPrive(dossier);
    if (tenu != DossiersTenus().end())
        tenu->second = VerrouDossier::Prendre(tenu->first).value_or(VerrouDossier());
}
