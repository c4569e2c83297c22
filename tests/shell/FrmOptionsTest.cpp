#include "shell/frmOptions.h"

#include "base/Const_Vrac.h"
#include "base/DossiersTemp.h"
#include "base/Options.h"
#include "extensions/langue/modLang.h"
#include "kit/Couleurs.h"
#include "kit/Icones.h"
#include "shell/OptionsEnFenetre.h"
#include "support/Accessibilite.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/GardeModale.h"
#include "support/PlateformeDeTest.h"
#include "vue/PoliceDeTable.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFontDatabase>
#include <QGroupBox>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

/// Every box with its key, the value that stands for it, and whether the key says the opposite.
struct Boite
{
    const char* nom;
    const char* cle;
    const char* caption;
    bool auDepart;
    bool inverse = false;
};

constexpr Boite Boites[] = {
    {"ckOpenLastFile", "OpenLastFile", "&Ouvrir le dernier fichier vu, au démarrage", false},
    {"chkLoadTipsAtStartup", "ShowTipsAtStartup", "&Afficher les astuces au démarrage", true, true},
    {"CKverrifie", "VerrifAssociation", "Vérifier l'association à chaque démarrage", true},
    {"ckInfobulle", "showInfobulles", "Afficher les info bulles pour les textes trop long", false},
    {"ckCommentaires", "commentAtStartup", "Afficher les commentaires à l'ouverture d'un fichier", false},
    {"ckImprim", "MessageImprim", "avant l'impression", true},
    {"ckSelection", "MessageEditMulti", "édition de selections multiples", true},
    {"ckSauvegarde", "SauvegardeLBK", "Créer des fichiers de sauvegardes", false},
};

struct ReglagesNotes : ReglagesEnMemoire
{
    void Ecrire(const QString& section, const QString& cle, const QString& valeur) override
    {
        ecrites.append(cle);
        ReglagesEnMemoire::Ecrire(section, cle, valeur);
    }
    QStringList ecrites; ///< keys, in the order in which they were written
};

class FrmOptionsTest : public testing::Test
{
protected:
    FrmOptionsTest() { plateforme().reglages = &m_reglages; }

    frmOptions& Montrer()
    {
        m_form = std::make_unique<frmOptions>();
        m_form->show();
        m_form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_form.get()));
        return *m_form;
    }
    static QString Lire(const char* cle) { return LireOption(QString::fromLatin1(cle), u"none"_s).toString(); }
    bool RienNEstEcrit() const { return m_reglages.ecrites.isEmpty(); }

    ReglagesNotes m_reglages;
    PlateformeDeTest& m_plateforme = PlateformeDeTest::Courante();
    FileDeReponses m_reponses;
    FileDeFichiers m_dialogues;
    std::unique_ptr<frmOptions> m_form;
};

/// Chooses another font in the dialog of fonts: another family, twice as large, bold.
void ChoisirAutrePolice(QWidget& form, const QString& famille)
{
    EXPECT_EQ(form.objectName(), "frmPolice");
    Partie<QComboBox>(form, "Nom").setFocus();
    while (Partie<QComboBox>(form, "Nom").currentText() != famille)
        QTest::keyClick(&Partie<QComboBox>(form, "Nom"), Qt::Key_Down);
    auto& taille = Partie<QDoubleSpinBox>(form, "Taille");
    taille.setFocus();
    taille.selectAll();
    QTest::keyClicks(&taille, u"16"_s);
    Cliquer(form, "Gras");
    Cliquer(form, "btOK");
}

} // namespace

// ---- what stands there

TEST_F(FrmOptionsTest, FourTabsShowFourPanes)
{
    const frmOptions& form = Montrer();
    EXPECT_EQ(form.windowTitle(), "Options");
    const QTabWidget& onglets = Onglets(form);
    ASSERT_EQ(onglets.count(), 4);
    const QStringList captions{u"Général"_s, u"Affichage"_s, u"Répertoire et Email"_s, u"Sauvegarde"_s};
    const QStringList aides{u"Définir les options générales"_s, u"Définir les options du groupe 2"_s,
                            u"Définir les options du groupe 3"_s, u"Définir les options du groupe 4"_s};
    const QList<QStringList> cadres{
        {u"Options générales"_s, u"Astuce du jour"_s, u"Associations des fichiers avec Zelvane"_s},
        {u"Info bules"_s, u"Police"_s, u"Commentaires"_s, u"Messages d'avertissement"_s},
        {u"Répertoire temporaire"_s, u"Email d'Avertissement"_s},
        {u"Sauvegarde"_s}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(onglets.tabText(i), captions[i]);
        EXPECT_EQ(onglets.tabToolTip(i), aides[i]);
        EXPECT_EQ(onglets.tabBar()->tabData(i), u"Group%1"_s.arg(i + 1));
        EXPECT_EQ(onglets.widget(i)->objectName(), u"picOptions_%1"_s.arg(i));
        QStringList titres;
        for (const QGroupBox* cadre : onglets.widget(i)->findChildren<QGroupBox*>())
            titres.append(cadre->title());
        EXPECT_EQ(titres, cadres[i]);
    }
}

TEST_F(FrmOptionsTest, ButtonsAndLabelsHaveTheirCaptionsAndPictures)
{
    const frmOptions& form = Montrer();
    const std::tuple<const char*, QString, QString> boutons[] = {
        {"btOK", u"O&K"_s, u"ok"_s},
        {"btCancel", u"Annuler"_s, u"annuler"_s},
        {"btParcourir1", u"Parcourir"_s, u"parcourir"_s},
        {"btReInit", u"Re Init Font"_s, u"annuler"_s},
        {"btSetFont", u"Change Font"_s, u"showtexte"_s},
        {"btAstuceDuJour", u"Afficher l'astuce du jour"_s, QString()},
        {"btAssocier", u"Associer les fichier QRT"_s, QString()},
    };
    for (const auto& [nom, caption, image] : boutons) {
        EXPECT_EQ(Partie(form, nom).text(), caption);
        EXPECT_EQ(Partie(form, nom).icon().pixmap(16).toImage(), Icone(image).pixmap(16).toImage()) << nom;
    }
    for (const Boite& boite : Boites)
        EXPECT_EQ(Partie<QCheckBox>(form, boite.nom).text(), QString::fromUtf8(boite.caption));
    EXPECT_EQ(Partie<QRadioButton>(form, "optDetail_0").text(), "A chaque enregistrement");
    EXPECT_EQ(Partie<QRadioButton>(form, "optDetail_1").text(), "Une seule fois lors du premier enregistrement");
    for (const auto& [champ, caption] : {std::pair("txtVotreEmail", "Votre email"), {"txtVotreSmtp", "SMTP :"}})
        EXPECT_EQ(NomAccessible(Champ(form, champ)), caption);
    EXPECT_EQ(NomAccessible(Champ(form, "txtTempFolder")), "Répertoire temporaire");
    EXPECT_EQ(Partie<QLabel>(form, "FontExemple").text(), "Zelvane v2.2");
}

TEST_F(FrmOptionsTest, ANewInstallationShowsTheDefaults)
{
    const frmOptions& form = Montrer();
    for (const Boite& boite : Boites)
        EXPECT_EQ(Cochee(form, boite.nom), boite.auDepart) << boite.nom;
    EXPECT_FALSE(Cochee(form, "optDetail_0"));
    EXPECT_TRUE(Cochee(form, "optDetail_1"));
    EXPECT_EQ(Champ(form, "txtVotreEmail").text(), "");
    EXPECT_EQ(Champ(form, "txtVotreSmtp").text(), "");
    EXPECT_EQ(Partie<QLabel>(form, "FontExemple").font(), PoliceDe(ReglagesDePolice()));
}

TEST_F(FrmOptionsTest, EveryControlShowsItsSetting)
{
    for (const Boite& boite : Boites) {
        for (const bool oui : {true, false}) {
            EcrireOption(QString::fromLatin1(boite.cle), oui ? "1" : "0");
            EXPECT_EQ(Cochee(frmOptions(), boite.nom), oui != boite.inverse) << boite.nom;
        }
    }
    EcrireOption(u"SauvegardeLBK_1"_s, "1");
    EcrireOption(u"VotreEmail"_s, u"moi@x.fr"_s);
    EcrireOption(u"VotreSmtp"_s, u"smtp.x.fr"_s);
    const frmOptions form;
    EXPECT_TRUE(Cochee(form, "optDetail_0"));
    EXPECT_FALSE(Cochee(form, "optDetail_1"));
    EXPECT_EQ(Champ(form, "txtVotreEmail").text(), "moi@x.fr");
    EXPECT_EQ(Champ(form, "txtVotreSmtp").text(), "smtp.x.fr");
}

TEST_F(FrmOptionsTest, TheTemporaryFolderIsTheOneInForce)
{
    EcrireOption(u"TempFolder"_s, u"/pour/la/prochaine/fois"_s);
    EXPECT_EQ(Champ(frmOptions(), "txtTempFolder").text(), TempFolder);
}

TEST_F(FrmOptionsTest, TheSampleShowsTheFontOfTheSettings)
{
    EcrireOption(u"FontBold"_s, "1");
    EcrireOption(u"FontItalic"_s, "1");
    EcrireOption(u"FontSize"_s, "14");
    EcrireOption(u"FontColor"_s, "255");
    const frmOptions form;
    const auto& exemple = Partie<QLabel>(form, "FontExemple");
    EXPECT_EQ(exemple.font(), PoliceDeTable());
    EXPECT_EQ(exemple.font().pointSizeF(), 14);
    EXPECT_EQ(exemple.palette().color(QPalette::WindowText), QColor(255, 0, 0));
}

TEST_F(FrmOptionsTest, TheSampleTurnsDarkWithTheWindows)
{
    const frmOptions& form = Montrer();
    const auto& exemple = Partie<QLabel>(form, "FontExemple");
    const QPalette avant = exemple.palette();
    MettreCouleurs(true);
    QCoreApplication::processEvents();
    const QPalette sombre = exemple.palette();
    MettreCouleurs(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(sombre.color(QPalette::Window), PaletteSombre().color(QPalette::Base));
    EXPECT_EQ(sombre.color(QPalette::WindowText), PaletteSombre().color(QPalette::Text));
    EXPECT_EQ(exemple.palette(), avant);
}

// ---- writing

TEST_F(FrmOptionsTest, OkWritesAllInItsOrderAndCloses)
{
    const frmOptions& form = Montrer();
    QTest::keyClick(m_form.get(), Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(m_reglages.ecrites,
              QStringList({u"VerrifAssociation"_s, u"ShowTipsAtStartup"_s, u"TempFolder"_s, u"OpenlastFile"_s,
                           u"commentAtStartup"_s, u"VotreEmail"_s, u"VotreSmtp"_s, u"MessageImprim"_s,
                           u"MessageEditMulti"_s, u"SauvegardeLBK"_s, u"SauvegardeLBK_1"_s, u"showInfobulles"_s}));
    for (const Boite& boite : Boites)
        EXPECT_EQ(Lire(boite.cle), boite.auDepart != boite.inverse ? "1" : "0") << boite.cle;
    EXPECT_EQ(Lire("SauvegardeLBK_1"), "0");
    EXPECT_EQ(Lire("TempFolder"), TempFolder);
    EXPECT_EQ(Lire("VotreEmail"), "");
}

TEST_F(FrmOptionsTest, EachBoxIsStoredUnderItsKey)
{
    for (const Boite& boite : Boites) {
        m_reglages.valeurs.clear();
        const frmOptions& form = Montrer();
        Cliquer(form, boite.nom);
        EXPECT_EQ(Cochee(form, boite.nom), !boite.auDepart) << boite.nom;
        EXPECT_EQ(Lire(boite.cle), "none") << "not before btOK";
        Cliquer(form, "btOK");
        for (const Boite& autre : Boites) {
            const bool cochee = autre.auDepart != (&autre == &boite);
            EXPECT_EQ(Lire(autre.cle), cochee != autre.inverse ? "1" : "0") << boite.nom << ' ' << autre.cle;
        }
    }
}

TEST_F(FrmOptionsTest, TextsAreStoredAsTheyAreTyped)
{
    const frmOptions& form = Montrer();
    Taper(form, "txtVotreEmail", u"moi@x.fr"_s);
    Taper(form, "txtVotreSmtp", u"smtp.x.fr"_s);
    Taper(form, "txtTempFolder", u"n'importe quoi"_s);
    Cliquer(form, "btOK");
    EXPECT_EQ(Lire("VotreEmail"), "moi@x.fr");
    EXPECT_EQ(Lire("VotreSmtp"), "smtp.x.fr");
    EXPECT_EQ(Lire("TempFolder"), "n'importe quoi");
    EXPECT_EQ(m_reponses.Cles(), QStringList()) << "a folder that is typed is not looked at";
}

TEST_F(FrmOptionsTest, CancelEscapeAndTheCloseBoxWriteNothing)
{
    const std::function<void(frmOptions&)> issues[] = {
        [](frmOptions& form) { Cliquer(form, "btCancel"); },
        [](frmOptions& form) { QTest::keyClick(&form, Qt::Key_Escape); },
        [](frmOptions& form) { form.close(); },
    };
    for (const auto& sortir : issues) {
        frmOptions& form = Montrer();
        for (const Boite& boite : Boites)
            Cliquer(form, boite.nom);
        Taper(form, "txtTempFolder", u"/ailleurs"_s);
        sortir(form);
        EXPECT_FALSE(form.isVisible());
        EXPECT_TRUE(RienNEstEcrit());
    }
}

// ---- tabs

TEST_F(FrmOptionsTest, AClickOnATabShowsItsPaneAlone)
{
    const frmOptions& form = Montrer();
    const QTabWidget& onglets = Onglets(form);
    for (const int choisi : {2, 1, 3, 0}) {
        QTest::mouseClick(onglets.tabBar(), Qt::LeftButton, {}, onglets.tabBar()->tabRect(choisi).center());
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(onglets.widget(i)->isVisible(), i == choisi);
            EXPECT_EQ(onglets.widget(i)->isEnabled(), i == choisi);
        }
    }
}

TEST_F(FrmOptionsTest, CtrlTabGoesRoundTheTabs)
{
    const frmOptions& form = Montrer();
    const QTabWidget& onglets = Onglets(form);
    for (const int suivant : {1, 2, 3, 0}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(onglets.currentIndex(), suivant);
    }
    for (const int precedent : {3, 2, 1, 0}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(onglets.currentIndex(), precedent);
    }
    Partie(form, "btCancel").setFocus();
    QTest::keyClick(&Partie(form, "btCancel"), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(onglets.currentIndex(), 1) << "from outside the tabs too";
}

TEST_F(FrmOptionsTest, TabReachesAllThatIsOnShow)
{
    const frmOptions& form = Montrer();
    const QList<QStringList> attendus{
        {u"ckOpenLastFile"_s, u"chkLoadTipsAtStartup"_s, u"btAstuceDuJour"_s, u"CKverrifie"_s, u"btAssocier"_s},
        {u"ckInfobulle"_s, u"btSetFont"_s, u"btReInit"_s, u"ckCommentaires"_s, u"ckImprim"_s, u"ckSelection"_s},
        {u"txtTempFolder"_s, u"btParcourir1"_s, u"txtVotreEmail"_s, u"txtVotreSmtp"_s},
        {u"ckSauvegarde"_s}};
    for (int page = 0; page < 4; ++page) {
        Onglets(form).setCurrentIndex(page);
        Onglets(form).tabBar()->setFocus();
        QStringList atteints;
        for (qsizetype i = 0; i < attendus[page].size() + 2; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            atteints.append(QApplication::focusWidget()->objectName());
        }
        EXPECT_EQ(atteints, attendus[page] + QStringList({u"btOK"_s, u"btCancel"_s}));
        EXPECT_EQ(ControlesSansNom(form), QStringList());
        const QStringList lettres = Lettres(form);
        EXPECT_EQ(QSet<QString>(lettres.begin(), lettres.end()).size(), lettres.size())
            << lettres.join(u' ').toStdString();
    }
}

// ---- buttons

TEST_F(FrmOptionsTest, TheChoicesOfBackupsNeedBackupsAndAreStoredAllTheSame)
{
    const frmOptions& form = Montrer();
    EXPECT_FALSE(Partie(form, "optDetail_0").isEnabledTo(Onglets(form).widget(3)));
    EXPECT_FALSE(Partie(form, "optDetail_1").isEnabledTo(Onglets(form).widget(3)));
    Cliquer(form, "ckSauvegarde");
    EXPECT_TRUE(Partie(form, "optDetail_0").isEnabled());
    EXPECT_TRUE(Partie(form, "optDetail_1").isEnabled());
    Cliquer(form, "optDetail_0");
    EXPECT_FALSE(Cochee(form, "optDetail_1"));
    Cliquer(form, "ckSauvegarde");
    EXPECT_FALSE(Partie(form, "optDetail_0").isEnabled());
    Cliquer(form, "btOK");
    EXPECT_EQ(Lire("SauvegardeLBK"), "0");
    EXPECT_EQ(Lire("SauvegardeLBK_1"), "1");
}

TEST_F(FrmOptionsTest, WithBackupsOnTheChoicesAreThereFromTheFirst)
{
    EcrireOption(u"SauvegardeLBK"_s, "1");
    const frmOptions form;
    EXPECT_TRUE(Partie(form, "optDetail_0").isEnabledTo(Onglets(form).widget(3)));
    EXPECT_TRUE(Partie(form, "optDetail_1").isEnabledTo(Onglets(form).widget(3)));
}

TEST_F(FrmOptionsTest, AFolderIsChosenForTheNextStart)
{
    const frmOptions& form = Montrer();
    const QString enVigueur = TempFolder;
    Taper(form, "txtTempFolder", u"/ici"_s);
    m_dialogues.PreparerDossier(u"/ailleurs"_s);
    Cliquer(form, "btParcourir1");
    ASSERT_EQ(m_dialogues.Demandes().size(), 1);
    EXPECT_EQ(m_dialogues.Demandes().first().depart, "/ici");
    EXPECT_EQ(m_dialogues.Demandes().first().titre, "Choisissez un repertoire temporaire");
    EXPECT_EQ(Champ(form, "txtTempFolder").text(), "/ailleurs");
    ASSERT_EQ(m_reponses.Cles(), QStringList{u"msg2"_s});
    const FileDeReponses::Affiche& affiche = m_reponses.Affiches().first();
    EXPECT_EQ(affiche.message.texte, "Ce changement sera pris en compte lors de la prochaine ouverture de Zelvane");
    EXPECT_EQ(affiche.titre, "Zelvane2 - Configuration");
    EXPECT_EQ(affiche.genre, MsgOk);
    EXPECT_TRUE(RienNEstEcrit());
    Cliquer(form, "btOK");
    EXPECT_EQ(Lire("TempFolder"), "/ailleurs");
    EXPECT_EQ(TempFolder, enVigueur);
}

TEST_F(FrmOptionsTest, AFolderThatIsNotChosenChangesNothing)
{
    const frmOptions& form = Montrer();
    m_dialogues.PreparerAnnulation();
    Cliquer(form, "btParcourir1");
    EXPECT_EQ(m_dialogues.Demandes().size(), 1);
    EXPECT_EQ(Champ(form, "txtTempFolder").text(), TempFolder);
    EXPECT_EQ(m_reponses.Cles(), QStringList());
}

TEST_F(FrmOptionsTest, FilesAreAssociatedAtOnce)
{
    const frmOptions& form = Montrer();
    Cliquer(form, "btAssocier");
    EXPECT_EQ(m_plateforme.association.fois, 1);
    ASSERT_EQ(m_reponses.Cles(), QStringList{u"msg1"_s});
    EXPECT_EQ(m_reponses.Affiches().first().message.texte, "C'est fait !");
}

TEST_F(FrmOptionsTest, ATipIsShownAndItsBoxAndThisOneAgree)
{
    m_plateforme.dossier.Ecrire(u"astuces.txt"_s, "Une astuce\r\n");
    const frmOptions& form = Montrer();
    const GardeModale garde(
        [](QWidget& astuce) {
            EXPECT_EQ(astuce.objectName(), "frmTip");
            EXPECT_EQ(Partie<QLabel>(astuce, "lblTipText").text(), "Une astuce");
            QTest::keyClick(&Partie(astuce, "chkLoadTipsAtStartup"), Qt::Key_Space);
            astuce.close();
        },
        5000, &form);
    Cliquer(form, "btAstuceDuJour");
    EXPECT_FALSE(Cochee(form, "chkLoadTipsAtStartup"));
    Cliquer(form, "btOK");
    EXPECT_EQ(Lire("ShowTipsAtStartup"), "1");
}

// ---- the font

TEST_F(FrmOptionsTest, AFontIsWrittenAtOnceAndCancelKeepsIt)
{
    const QString famille = QFontDatabase::families().last();
    const frmOptions& form = Montrer();
    const GardeModale garde([&famille](QWidget& police) { ChoisirAutrePolice(police, famille); }, 5000, &form);
    Cliquer(form, "btSetFont");
    EXPECT_EQ(m_reglages.ecrites,
              QStringList({u"FontBold"_s, u"FontItalic"_s, u"FontName"_s, u"FontSize"_s, u"FontColor"_s}));
    EXPECT_EQ(Partie<QLabel>(form, "FontExemple").font(), PoliceDeTable());
    Cliquer(form, "btCancel");
    EXPECT_EQ(Lire("FontName"), famille);
    EXPECT_EQ(Lire("FontSize"), "16");
    EXPECT_EQ(Lire("FontBold"), "1");
    EXPECT_EQ(Lire("FontItalic"), "0");
    EXPECT_EQ(Lire("FontColor"), "0");
}

TEST_F(FrmOptionsTest, AFontThatIsNotChosenWritesTheOldValues)
{
    EcrireOption(u"FontItalic"_s, "1");
    EcrireOption(u"FontColor"_s, "255");
    m_reglages.ecrites.clear();
    const frmOptions& form = Montrer();
    const GardeModale garde(
        [](QWidget& police) {
            Cliquer(police, "Gras");
            QTest::keyClick(&police, Qt::Key_Escape);
        },
        5000, &form);
    Cliquer(form, "btSetFont");
    EXPECT_EQ(m_reglages.ecrites.size(), 5);
    EXPECT_EQ(Lire("FontName"), "MS Sans Serif");
    EXPECT_EQ(Lire("FontSize"), "8.25");
    EXPECT_EQ(Lire("FontBold"), "0");
    EXPECT_EQ(Lire("FontItalic"), "1");
    EXPECT_EQ(Lire("FontColor"), "255");
}

TEST_F(FrmOptionsTest, TheFontGoesBackToTheDefaultsAtOnce)
{
    for (const auto& [cle, valeur] : {std::pair(u"FontBold"_s, u"1"_s),
                                      {u"FontItalic"_s, u"1"_s},
                                      {u"FontName"_s, u"Nulle"_s},
                                      {u"FontSize"_s, u"30"_s},
                                      {u"FontColor"_s, u"7"_s}})
        EcrireOption(cle, valeur);
    const frmOptions& form = Montrer();
    Cliquer(form, "btReInit");
    EXPECT_EQ(Lire("FontBold"), "0");
    EXPECT_EQ(Lire("FontItalic"), "0");
    EXPECT_EQ(Lire("FontName"), "MS Sans Serif");
    EXPECT_EQ(Lire("FontSize"), "8.25");
    EXPECT_EQ(Lire("FontColor"), "0");
    EXPECT_EQ(Partie<QLabel>(form, "FontExemple").font(), PoliceDe(ReglagesDePolice()));
    EXPECT_TRUE(form.isVisible());
}

// ---- languages

TEST_F(FrmOptionsTest, TheFormSpeaksTheLanguageInForce)
{
    FichierLangue = m_plateforme.dossier.Ecrire(u"lang/english.ini"_s,
                                                "[frmOptions]\r\nCaption=Settings\r\nckImprim_C=before printing\r\n"
                                                "optDetail_0_C=Each time\r\nFrameTemp_C=Temporary folder\r\n"
                                                "[other]\r\nmsgGroup2=View\r\nmsgGroup2Aide=What is seen\r\n");
    const frmOptions form;
    EXPECT_EQ(form.windowTitle(), "Settings");
    EXPECT_EQ(Partie(form, "ckImprim").text(), "before printing");
    EXPECT_EQ(Partie(form, "optDetail_0").text(), "Each time");
    EXPECT_EQ(Onglets(form).tabText(1), "View");
    EXPECT_EQ(Onglets(form).tabToolTip(1), "What is seen");
    EXPECT_EQ(NomAccessible(Champ(form, "txtTempFolder")), "Temporary folder");
}
