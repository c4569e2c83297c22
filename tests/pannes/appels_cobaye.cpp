// One scenario on the real core, without a screen: appels_cobaye SCENARIO [FILE [TARGET]]. It is run while calls fail,
// and says on its output, line by line, all that a user would be told and what it believes to have done. Before each
// "ETAPE" is passed it waits for a line, so that whoever runs it can look at the disk.
//
//   ouvrir FILE            opens and closes
//   enregistrer FILE       opens, changes, saves and closes
//   sous FILE TARGET TYPE  the same, saved as another file of a type of the dialog (2: archive, 3: bare text)
//   secours FILE           opens, changes, writes the rescue copy and ends as a killed program does
//   laisses                opens what killed programs left, and ends as one
//   laisses-sous - TARGET  the same, saves it as a file and closes
#include "base/ActesDuDossier.h"
#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "base/DialogueFichier.h"
#include "base/DossiersTemp.h"
#include "catalogue/documents/DossiersLaisses.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "catalogue/documents/Sauver.h"
#include "catalogue/texte/Categorie.h"
#include "extensions/langue/modLang.h"
#include "platform/Plateforme.h"
#include "support/CadreDeTest.h"

#include <QCoreApplication>
#include <QFile>

#include <dlfcn.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <string>

using namespace Qt::StringLiterals;

namespace {

void Dire(const QString& ligne)
{
    QString une = ligne;
    une.replace(u'\n', u' ');
    const QByteArray octets = une.toUtf8() + '\n';
    std::fwrite(octets.constData(), 1, static_cast<size_t>(octets.size()), stdout);
    std::fflush(stdout);
}

void Dire(const QString& quoi, bool oui)
{
    Dire(quoi + (oui ? u" 1"_s : u" 0"_s));
}

/// Calls a function of the preloaded library, which need not be there.
template<class Argument> void AppelerPrechargee(const char* nom, Argument argument)
{
    if (void* fonction = dlsym(RTLD_DEFAULT, nom))
        reinterpret_cast<void (*)(Argument)>(fonction)(argument);
}

void Armer(bool oui)
{
    AppelerPrechargee("PanneArmer", int(oui));
}

/// Waits until whoever runs this has looked; a line "HORLOGE n" sets the clock.
void Etape(const QString& nom)
{
    Armer(false);
    Dire(u"ETAPE "_s + nom);
    std::string ligne;
    while (std::getline(std::cin, ligne) && !ligne.empty()) {
        if (ligne.starts_with("HORLOGE "))
            AppelerPrechargee("PanneDecalerHorloge", std::stol(ligne.substr(std::strlen("HORLOGE "))));
    }
    Armer(true);
}

/// Says what is shown, and answers as a user does who wants to lose nothing.
class Bavard : public PresentateurMessages, public PresentateurFichiers
{
public:
    int Afficher(const Message& message, int genre, const QString&) override
    {
        const QString cle = message.cle.isEmpty() ? u"-"_s : message.cle;
        Dire((genre == MsgOk ? u"MSG "_s : u"QUESTION "_s) + cle + u' ' + message.texte);
        if (genre == MsgOk || genre == MsgOkAnnuler)
            return RepOk;
        // Yes is to choose again there, and here to do without images that are gone.
        return cle == u"msg61" || cle == u"msgDisparus" ? RepNon : RepOui;
    }
    QString DemanderMotDePasse(const QString&, const QString&) override { return {}; }
    std::optional<ReponseFichier> Ouvrir(const DemandeFichier&) override { return std::nullopt; }
    std::optional<ReponseFichier> Enregistrer(const DemandeFichier&) override
    {
        // A second time, the user has given up.
        return demandes++ == 0 && !cible.isEmpty() ? std::optional(ReponseFichier{{cible}, type}) : std::nullopt;
    }

    QString Dossier(const QString&, const QString&) override { return {}; }

    QString cible;
    int type = 2;
    int demandes = 0;
};

class Seance
{
public:
    Seance(const QStringList& arguments, Bavard& bavard) : m_fichier(arguments.value(1)), m_bavard(bavard)
    {
        bavard.cible = arguments.value(2);
        bavard.type = arguments.value(3, u"2"_s).toInt();
    }

    int Executer(const QString& scenario)
    {
        if (scenario == u"ouvrir")
            return OuvrirEtFermer();
        if (scenario == u"enregistrer" || scenario == u"sous")
            return EnregistrerEtFermer(scenario == u"sous");
        if (scenario == u"secours")
            return EcrireSecours();
        if (scenario == u"laisses" || scenario == u"laisses-sous")
            return OuvrirLesLaisses(scenario == u"laisses-sous");
        return 64;
    }

private:
    bool Ouvrir()
    {
        const bool ouvert = OuvrirFichier(m_cadre, m_fichier, 2, true);
        Dire(u"OUVERT"_s, ouvert);
        if (ouvert)
            Montrer();
        return ouvert;
    }

    /// All of the document, as its user sees it.
    void Montrer()
    {
        const Categorie& doc = Document();
        Dire(u"DOSSIER "_s + doc.TmpFolder);
        QString colonnes;
        for (int i = 1; i <= doc.ColCount(); ++i)
            colonnes += doc.MyLV->ColumnHeaders(i).Text() + u'\t';
        Dire(u"COLONNES "_s + colonnes);
        for (int i = 1; i <= doc.ItemsCount(); ++i) {
            const ListItem entree = doc.MyLV->ListItems(i);
            Dire(u"ENTREE "_s + entree.Valeurs().join(u'\t') + u'\t' + entree.Tag() + u'\t' + entree.SmallIcon());
        }
    }

    /// What a user does between opening and saving. None of it is under test.
    void Modifier()
    {
        Armer(false);
        Categorie& doc = Document();
        MyLV& table = *doc.MyLV;
        table.ListItems(1).SetSubItems(1, u"modifiée, Пётр"_s);
        ListItem entree = table.ListItems.Add(0, u"k9000001"_s, u"Nouvelle entrée"_s);
        entree.SetTag(u"neuve.png"_s);
        entree.SetSmallIcon(u"ico"_s);
        for (const auto& [nom, octet] : {std::pair("neuve.png", 'n'), std::pair("petite.png", 'G')}) {
            QFile image(doc.TmpFolder + QLatin1StringView(nom));
            QFile::remove(image.fileName());
            if (!image.open(QIODevice::WriteOnly) || image.write(QByteArray(90'000, octet)) < 0)
                Dire(u"MSG - image"_s);
            image.close();
            NoterEcriture(image.fileName());
        }
        doc.IlFautSauver = true;
        Etape(u"modifie"_s);
    }

    void Enregistrer(bool sous)
    {
        Dire(u"ENREGISTRE"_s, ::Enregistrer(Document(), sous, true));
        Dire(u"MODIFIE"_s, Document().IlFautSauver);
        Etape(u"enregistre"_s);
    }

    /// As the window does when its user closes it. One that stays open has its changes in the rescue copy.
    int Fermer()
    {
        Categorie& doc = Document();
        const bool ferme = PeutFermer(doc);
        Dire(u"FERME"_s, ferme);
        if (!ferme) {
            Dire(u"SECOURS"_s, m_cadre.fenetres.back()->Secours.EcrireMaintenant(doc, u"essai.qrt"_s));
            return Tuer();
        }
        if (!doc.GardeDossier())
            SupprimerDossier(doc.TmpFolder, true);
        return 0;
    }

    int OuvrirEtFermer()
    {
        Armer(true);
        if (!Ouvrir())
            return 1;
        Etape(u"ouvert"_s);
        return Fermer();
    }

    int EnregistrerEtFermer(bool sous)
    {
        if (!Ouvrir())
            return 1;
        Modifier();
        Enregistrer(sous);
        return Fermer();
    }

    int EcrireSecours()
    {
        if (!Ouvrir())
            return 1;
        SecoursDuDocument& secours = m_cadre.fenetres.back()->Secours;
        Armer(true);
        secours.Avancer(Document(), u"essai.qrt"_s, {}); // whose folder it is
        Modifier();
        Dire(u"SECOURS"_s, secours.EcrireMaintenant(Document(), u"essai.qrt"_s));
        return Tuer();
    }

    int OuvrirLesLaisses(bool sous)
    {
        Armer(true);
        const std::vector<DossierLaisse> laisses = ChercherLaisses();
        Dire(u"LAISSES %1"_s.arg(laisses.size()));
        bool tous = true;
        for (const DossierLaisse& laisse : laisses) {
            const bool ouvert = OuvrirLaisse(m_cadre, laisse);
            Dire(u"OUVERT"_s, ouvert);
            if (ouvert)
                Montrer();
            tous = tous && ouvert;
        }
        if (!sous)
            return Tuer();
        if (!tous || laisses.empty())
            return 1;
        Enregistrer(true);
        return Fermer();
    }

    /// Ends as a program does that is killed.
    static int Tuer()
    {
        std::fflush(stdout);
        _exit(0);
    }

    Categorie& Document() { return m_cadre.fenetres.back()->myqrt; }

    QString m_fichier;
    Bavard& m_bavard;
    CadreDeTest m_cadre;
};

/// Bounds the address space to a number of bytes beyond what is in use now; 0 for none.
void LimiterMemoire(const QByteArray& octets)
{
    std::array<char, 64> debut{};
    QFile etat(u"/proc/self/statm"_s);
    if (octets.toULongLong() == 0 || !etat.open(QIODevice::ReadOnly) || etat.read(debut.data(), debut.size() - 1) <= 0)
        return;
    const auto pages = static_cast<rlim_t>(std::strtoull(debut.data(), nullptr, 10));
    const rlim_t limite = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + octets.toULongLong();
    const rlimit limites{limite, limite};
    setrlimit(RLIMIT_AS, &limites);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const PlateformeReelle plateformeReelle;
    Bavard bavard;
    InstallerPresentateur(static_cast<PresentateurMessages*>(&bavard));
    InstallerPresentateur(static_cast<PresentateurFichiers*>(&bavard));
    EcrireOption(u"TempFolder"_s, qEnvironmentVariable("APPELS_TEMP"));
    EcrireOption(u"SauvegardeLBK"_s, 1);
    EcrireOption(u"SauvegardeLBK_1"_s, 1);
    EcrireOption(u"commentAtStartup"_s, 0);
    ChargerLangue(u"default"_s);
    InitialiserTempFolder();
    LimiterMemoire(qgetenv("APPELS_MEMOIRE"));
    return Seance(arguments, bavard).Executer(arguments.value(0));
}
