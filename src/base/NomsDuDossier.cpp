#include "base/NomsDuDossier.h"

#include "platform/NomsSysteme.h"
#include "platform/PageDeCode.h"

#include <filesystem>
#include <system_error>

namespace {

namespace fs = std::filesystem;

template<class Choix> std::optional<QStringList> Noms(const QString& dossier, Choix choix)
{
    QStringList noms;
    std::error_code erreur;
    for (fs::directory_iterator it(OctetsDuChemin(dossier).toStdString(), erreur), fin; !erreur && it != fin;
         it.increment(erreur)) {
        if (choix(*it))
            noms.append(PageDeCode::DeUtf8(it->path().filename().native()));
    }
    return erreur ? std::nullopt : std::optional(noms);
}

} // namespace

std::optional<QStringList> NomsDuDossier(const QString& dossier)
{
    return Noms(dossier, [](const fs::directory_entry&) { return true; });
}

std::optional<QStringList> FichiersDuDossier(const QString& dossier)
{
    return Noms(dossier, [](const fs::directory_entry& entree) {
        std::error_code sansSuite; // a link to nothing
        return entree.is_regular_file(sansSuite);
    });
}
