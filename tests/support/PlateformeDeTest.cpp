#include "support/PlateformeDeTest.h"

#include "base/DossiersTemp.h"
#include "extensions/langue/modLang.h"

#include <QDir>

#include <gtest/gtest.h>

#include <memory>

std::optional<QString> ReglagesEnMemoire::Lire(const QString& section, const QString& cle) const
{
    const auto trouve = valeurs.constFind({section.toLower(), cle.toLower()});
    return trouve == valeurs.cend() ? std::nullopt : std::optional(*trouve);
}

void ReglagesEnMemoire::Ecrire(const QString& section, const QString& cle, const QString& valeur)
{
    valeurs.insert({section.toLower(), cle.toLower()}, valeur);
}

std::optional<QString> ReglagesEnMemoire::LireDepose(const QString& section, const QString& cle) const
{
    const auto trouve = deposees.constFind({section.toLower(), cle.toLower()});
    return trouve == deposees.cend() ? std::nullopt : std::optional(*trouve);
}

std::optional<FichiersIni::Empreinte> FichiersIniEnMemoire::Regarder(const QString& fichier) const
{
    if (!fichiers.contains(fichier) || fermes.contains(fichier) || casses.contains(fichier))
        return std::nullopt;
    const QByteArray octets = fichiers.value(fichier);
    return Empreinte{0, qHash(fichier), octets.size(), heure, heure};
}

FichiersIni::Contenu FichiersIniEnMemoire::Charger(const QString& fichier) const
{
    ++lectures;
    if (fermes.contains(fichier))
        return {Contenu::Ferme, {}, {}};
    if (casses.contains(fichier))
        return {Contenu::Casse, {}, erreur};
    if (!fichiers.contains(fichier))
        return {Contenu::Absent, {}, {}};
    return {Contenu::Lu, fichiers.value(fichier), {}};
}

std::shared_ptr<const void> FichiersIniEnMemoire::Tenir(const QString& fichier) const
{
    return tenus.contains(fichier) ? nullptr : std::make_shared<char>();
}

bool FichiersIniEnMemoire::Remplacer(const QString& fichier, const QByteArray& octets)
{
    if (proteges.contains(fichier))
        return false;
    ++ecritures;
    ++heure;
    fichiers.insert(fichier, octets);
    return true;
}

bool AttributsEnMemoire::MettreLectureSeule(const QString& chemin, bool oui)
{
    if (figes.contains(chemin))
        return false;
    if (oui)
        lectureSeule.insert(chemin);
    else
        lectureSeule.remove(chemin);
    return true;
}

double HasardPrepare::Tirer()
{
    ++tires;
    // A quarter of a step keeps clear of the rounding of the product.
    return tirages.isEmpty() ? (m_suite++ % 500 + 0.25) / 500 : tirages.takeFirst();
}

bool ProgrammesNotes::OuvrirFichier(const QString& chemin)
{
    fichiers.append(chemin);
    return reponse;
}

bool ProgrammesNotes::OuvrirAdresse(const QString& adresse)
{
    adresses.append(adresse);
    return reponse;
}

namespace {

std::unique_ptr<PlateformeDeTest> s_courante;

class UneParTest : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override { s_courante = std::make_unique<PlateformeDeTest>(); }
    void OnTestEnd(const testing::TestInfo&) override { s_courante.reset(); }
};

} // namespace

PlateformeDeTest::PlateformeDeTest()
{
    Plateforme& p = plateforme();
    p.reglages = &reglages;
    p.ini = &ini;
    p.attributs = &attributs;
    p.horloge = &horloge;
    p.hasard = &hasard;
    p.region = &region;
    p.association = &association;
    p.programmes = &programmes;
    p.imprimantes = &imprimantes;
    p.pressePapiers = &pressePapiers;
    p.rendezvous = &rendezvous;
    p.dossierProgramme = dossier.Chemin();
    TempFolder = dossier.Fichier("temp");
    QDir().mkpath(TempFolder);
}

PlateformeDeTest::~PlateformeDeTest()
{
    for (const QString& tenu : DossiersTempTenus())
        SupprimerDossier(tenu, true);
    TempFolder.clear();
    FichierLangue.clear();
    plateforme() = Plateforme();
}

PlateformeDeTest& PlateformeDeTest::Courante()
{
    return *s_courante;
}

void InstallerPlateformeDeTest()
{
    testing::UnitTest::GetInstance()->listeners().Append(new UneParTest);
}
