// The platform of a test: doubles in memory, a folder of its own for the program, nothing of the user's or the clock's.
#pragma once

#include "platform/Plateforme.h"
#include "support/DossierDeTest.h"
#include "support/RendezvousEnMemoire.h"

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QPair>
#include <QSet>
#include <QStringList>

#include <functional>
#include <memory>

class ReglagesEnMemoire : public Reglages
{
public:
    std::optional<QString> Lire(const QString& section, const QString& cle) const override;
    void Ecrire(const QString& section, const QString& cle, const QString& valeur) override;
    void Deposer() override { deposees.insert(valeurs); }
    std::optional<QString> LireDepose(const QString& section, const QString& cle) const override;

    QHash<QPair<QString, QString>, QString> valeurs;  ///< by section and key, both in lower case
    QHash<QPair<QString, QString>, QString> deposees; ///< what this process and others have stored
};

class FichiersIniEnMemoire : public FichiersIni
{
public:
    QHash<QString, QByteArray> fichiers;
    QSet<QString> fermes;   ///< files that cannot be opened
    QSet<QString> casses;   ///< files whose reading fails with `erreur`
    QSet<QString> proteges; ///< files that cannot be written
    QSet<QString> tenus;    ///< files that another program holds
    QString erreur = QStringLiteral("Input/output error");
    int ecritures = 0;
    mutable int lectures = 0; ///< how often a file was read whole
    int heure = 0;            ///< when all files were changed last

protected:
    std::optional<Empreinte> Regarder(const QString& fichier) const override;
    Contenu Charger(const QString& fichier) const override;
    std::shared_ptr<const void> Tenir(const QString& fichier) const override;
    bool Remplacer(const QString& fichier, const QByteArray& octets) override;
};

class AttributsEnMemoire : public AttributsFichier
{
public:
    bool EstLectureSeule(const QString& chemin) const override { return lectureSeule.contains(chemin); }
    bool MettreLectureSeule(const QString& chemin, bool oui) override;

    QSet<QString> lectureSeule;
    QSet<QString> figes; ///< files whose attribute cannot be changed
};

class HorlogeArretee : public Horloge
{
public:
    QDateTime Maintenant() const override { return heure; }
    QDateTime heure{QDate(2005, 9, 13), QTime(9, 7, 5)};
};

class RegionDeTest : public Region
{
public:
    QLocale DesDates() const override { return locale; }
    QLocale locale{QLocale::French, QLocale::France};
};

/// Gives the prepared numbers, then 0, 1/500, 2/500 ... over and over.
class HasardPrepare : public Hasard
{
public:
    void Semer(uint32_t graine) override { graines.append(graine); }
    double Tirer() override;

    QList<double> tirages;
    QList<uint32_t> graines;
    int tires = 0; ///< how often a number was drawn

private:
    int m_suite = 0;
};

class AssociationComptee : public Association
{
public:
    void Enregistrer() override { ++fois; }
    int fois = 0;
};

class ProgrammesNotes : public Programmes
{
public:
    bool OuvrirFichier(const QString& chemin) override;
    bool OuvrirAdresse(const QString& adresse) override;

    QStringList fichiers;
    QStringList adresses;
    bool reponse = true;
};

/// Printers that a test names; jobs are made by `commencer`, and there are none without it.
class ImprimantesPreparees : public Imprimantes
{
public:
    QStringList Noms() const override { return noms; }
    QString ParDefaut() const override { return parDefaut; }
    std::unique_ptr<TravailDImpression> Commencer(const QString& imprimante, const QString& titre) override
    {
        return commencer ? commencer(imprimante, titre) : nullptr;
    }

    QStringList noms;
    QString parDefaut;
    std::function<std::unique_ptr<TravailDImpression>(const QString& imprimante, const QString& titre)> commencer;
};

/// A clipboard of the test's own.
class PressePapiersEnMemoire : public PressePapiers
{
public:
    std::optional<QString> Texte() const override { return texte; }
    void Poser(const QString& nouveau) override { texte = nouveau; }
    void Vider() override { texte.reset(); }

    std::optional<QString> texte;
};

/// Fills plateforme() for one test, and clears what is global at its end: TempFolder, FichierLangue. Every test of a
/// program that uses the support's main has one: Courante(). Ini files and attributes are those of the disk, since
/// tests look at the files; put the doubles in where a test needs them.
class PlateformeDeTest
{
public:
    PlateformeDeTest();
    ~PlateformeDeTest();
    PlateformeDeTest(const PlateformeDeTest&) = delete;
    PlateformeDeTest& operator=(const PlateformeDeTest&) = delete;

    static PlateformeDeTest& Courante();

    DossierDeTest dossier; ///< holds the program's folder, empty, and TempFolder ("temp" in it)
    ReglagesEnMemoire reglages;
    FichiersIniDisque ini;
    FichiersIniEnMemoire iniEnMemoire;
    AttributsDisque attributs;
    AttributsEnMemoire attributsEnMemoire;
    HorlogeArretee horloge;
    HasardPrepare hasard;
    RegionDeTest region;
    AssociationComptee association;
    ProgrammesNotes programmes;
    ImprimantesPreparees imprimantes;
    PressePapiersEnMemoire pressePapiers;
    RendezvousEnMemoire rendezvous;
};

/// Gives every test a PlateformeDeTest of its own. Called once by the main of a test program.
void InstallerPlateformeDeTest();
