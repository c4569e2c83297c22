// Every dialog at the sizes of letters that people set, in every language: all is read, and all is on a small screen.
#include "base/Options.h"
#include "catalogue/documents/Commentaires.h"
#include "catalogue/documents/DossiersLaisses.h"
#include "columns/frmEditerColonnes.h"
#include "columns/frmFusionner.h"
#include "columns/frmSeparerEn2.h"
#include "entries/frmAddCategorie2.h"
#include "entries/frmCopieParLot.h"
#include "entries/frmDragAndDrop.h"
#include "entries/frmEditEntree.h"
#include "entries/frmPreEnregistre.h"
#include "entries/frmSuppDependant.h"
#include "entries/frmSuppr.h"
#include "extensions/dialogues/About.h"
#include "extensions/dialogues/frmCommentaires.h"
#include "extensions/dialogues/frmLang.h"
#include "extensions/dialogues/frmPresent2.h"
#include "extensions/dialogues/frmTip.h"
#include "extensions/langue/modLang.h"
#include "extensions/plugins/DossierDePlugins.h"
#include "extensions/plugins/frmPlugins.h"
#include "images/frmChangeImage.h"
#include "images/frmRemplacerImg.h"
#include "images/frmSupprImg.h"
#include "images/frmView.h"
#include "kit/Couleurs.h"
#include "kit/DialoguesDansLEcran.h"
#include "kit/frmAvancement.h"
#include "kit/frmInputText.h"
#include "kit/frmMotDePasse.h"
#include "kit/frmMsg.h"
#include "lending/frmContacts.h"
#include "lending/frmContacts2.h"
#include "lending/frmMail.h"
#include "lending/frmPreter.h"
#include "output/frmApercu.h"
#include "output/frmExport.h"
#include "output/frmPrint.h"
#include "output/frmPrintOptions.h"
#include "output/frmStat.h"
#include "search/frmCompare1.h"
#include "search/frmCompare2.h"
#include "search/frmRecherche.h"
#include "shell/CadreEnFenetre.h"
#include "shell/ImagesDeFormes.h"
#include "shell/LangueInventee.h"
#include "shell/PanneauDAccueil.h"
#include "shell/frmOptions.h"
#include "shell/frmPolice.h"
#include "shell/frmSecours.h"
#include "support/CadreDeTest.h"
#include "support/GardeModale.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QSizeGrip>

#include <cmath>
#include <functional>
#include <ostream>

using namespace Qt::StringLiterals;

namespace {

/// A screen of 1024 x 600, less what a window manager takes.
constexpr QSize PetitEcran(1024 - 16, 600 - 40);
/// What the menus, the large bars, the tabs and the status line of the frame leave there with the largest letters.
constexpr int HauteurDeLaZone = 330;

QString EnMots(const QSize& taille)
{
    return u"%1x%2"_s.arg(taille.width()).arg(taille.height());
}

/// How wide a label with a mnemonic is drawn: the underlined letter stands by itself, and is not moved closer to the
/// next one, as Qt expects it when it tells the label's size.
int LargeurDessinee(const QLabel& etiquette)
{
    const QString texte = QString(etiquette.text()).replace(u"&&"_s, u"+"_s);
    const qsizetype place = texte.indexOf(u'&');
    if (place < 0)
        return 0;
    const QFontMetricsF mesures(etiquette.font());
    return static_cast<int>(std::floor(mesures.horizontalAdvance(texte.left(place)) +
                                       mesures.horizontalAdvance(texte.mid(place + 1, 1)) +
                                       mesures.horizontalAdvance(texte.mid(place + 2))));
}

/// The room that a control's text takes where the control is as wide as it is.
QSize PlaceDuTexte(const QWidget& controle)
{
    if (const auto* etiquette = qobject_cast<const QLabel*>(&controle)) {
        if (etiquette->text().isEmpty())
            return {};
        if (etiquette->wordWrap())
            return {etiquette->minimumSizeHint().width(), etiquette->heightForWidth(etiquette->width())};
        return etiquette->sizeHint().expandedTo({LargeurDessinee(*etiquette), 0});
    }
    if (const auto* bouton = qobject_cast<const QAbstractButton*>(&controle))
        return bouton->sizeHint();
    if (const auto* groupe = qobject_cast<const QGroupBox*>(&controle))
        return {groupe->fontMetrics().horizontalAdvance(groupe->title()), 0};
    if (qobject_cast<const QLineEdit*>(&controle) || qobject_cast<const QComboBox*>(&controle))
        return {0, controle.minimumSizeHint().height()};
    return {};
}

bool Defile(const QWidget& controle)
{
    for (const QWidget* parent = controle.parentWidget(); parent; parent = parent->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(parent))
            return true;
    }
    return false;
}

/// What cannot be read of a form: cut off, out of its place or under another control.
QStringList Defauts(const QWidget& form)
{
    QStringList defauts;
    QList<const QWidget*> vus;
    for (const QWidget* controle : form.findChildren<QWidget*>()) {
        if (!controle->isVisibleTo(&form) || controle->isWindow() || Defile(*controle) ||
            qobject_cast<const QSizeGrip*>(controle) || qobject_cast<const QComboBox*>(controle->parentWidget()) ||
            qobject_cast<const QAbstractSpinBox*>(controle->parentWidget()))
            continue;
        vus.append(controle);
        const QSize place = PlaceDuTexte(*controle);
        if (place.width() > controle->width() || place.height() > controle->height())
            defauts.append(u"%1: %2 in %3"_s.arg(NomDuControle(*controle), EnMots(place), EnMots(controle->size())));
        if (!controle->parentWidget()->rect().contains(controle->geometry()))
            defauts.append(u"%1 leaves its place"_s.arg(NomDuControle(*controle)));
    }
    for (qsizetype i = 0; i < vus.size(); ++i) {
        for (qsizetype j = i + 1; j < vus.size(); ++j) {
            if (vus[i]->parentWidget() == vus[j]->parentWidget() && vus[i]->geometry().intersects(vus[j]->geometry()))
                defauts.append(u"%1 over %2"_s.arg(NomDuControle(*vus[i]), NomDuControle(*vus[j])));
        }
    }
    return defauts;
}

/// What can hardly be told from the ground that it stands on.
QStringList TextesPales(const QWidget& form)
{
    QStringList pales;
    for (const QWidget* controle : form.findChildren<QWidget*>()) {
        if (!controle->isVisibleTo(&form) || controle->objectName() == u"Degrade") // which is an ornament
            continue;
        const QColor encre = controle->palette().color(controle->foregroundRole());
        const QColor fond = controle->palette().color(controle->backgroundRole());
        if (Contraste(encre, fond) < 4.5)
            pales.append(u"%1: %2 on %3"_s.arg(NomDuControle(*controle), encre.name(), fond.name()));
    }
    return pales;
}

class Polices : public CadreEnFenetre
{
protected:
    Polices()
    {
        AssombrirSIlLeFaut();
        MettreColonnes(document.table, {"Titre", "Artiste", "Genre", u"Prêté à"_s});
        document.table.ColumnHeaders(3).SetTag("rock|jazz|blues");
        AjouterEntrees(document.table,
                       {{"Abbey Road", "The Beatles", "rock"}, {"Kind of Blue", "Miles Davis", "jazz"}});
        QImage image(64, 64, QImage::Format_RGB32);
        image.fill(Qt::red);
        image.save(document.dossier.Fichier("pochette.bmp"));
        document.table.ListItems(1).SetTag("pochette.bmp");
        document.table.Selectionner(1, 2, true);
    }
    ~Polices() override
    {
        FichierLangue.clear();
        MettreCouleurs(false);
        QApplication::setFont(m_police);
    }

    /// Opens a dialog at each size, in each language, and looks at it.
    void Regarder(const std::function<void(const std::function<void(QWidget&)>&)>& ouvrir)
    {
        const QDir langues(QStringLiteral(ZELVANE_LANGUES));
        for (const QString& langue : QStringList(QString()) + langues.entryList({u"*.ini"_s}, QDir::Files)) {
            FichierLangue = langue.isEmpty() ? QString() : langues.filePath(langue);
            for (const int points : {9, 13, 18}) {
                QFont police = m_police;
                police.setPointSize(points);
                QApplication::setFont(police);
                ouvrir([&](QWidget& form) { Controler(form, langue.section(u'.', 0, 0), points); });
            }
        }
        FichierLangue = EcrireLangueInventee();
        QApplication::setFont(m_police);
        ouvrir([this](QWidget& form) {
            EXPECT_EQ(SansTraduction(form, donnees).isEmpty(), traduite)
                << form.objectName().toStdString() << SansTraduction(form, donnees).join(u'\n').toStdString();
        });
        FichierLangue.clear();
    }
    /// The same for a dialog that is made and shown.
    void RegarderForm(const std::function<std::unique_ptr<QWidget>()>& faire)
    {
        Regarder([&](const std::function<void(QWidget&)>& controler) {
            const std::unique_ptr<QWidget> form = faire();
            form->show();
            controler(*form);
        });
    }

    static void ControlerEnSombre(QWidget& form)
    {
        MettreCouleurs(true);
        CadreEnFenetre::Laisser();
        if (const QByteArray dossier = qgetenv("POLICES_IMAGES"); !dossier.isEmpty())
            form.grab().save(u"%1/%2-sombre.png"_s.arg(QString::fromLocal8Bit(dossier), form.objectName()));
        EXPECT_EQ(TextesPales(form), QStringList()) << form.objectName().toStdString() << " in dark colours";
        MettreCouleurs(false);
        CadreEnFenetre::Laisser();
    }

    DocumentDeTest document;
    /// Texts that are the same in each language: those of the user, and those that the test hands over.
    QStringList donnees{u"Titre"_s, u"Artiste"_s, u"Genre"_s, u"Prêté à"_s, u"Prêté"_s, u"Abbey Road"_s};
    bool traduite = true; ///< false for a form that stays in French

private:
    static void Controler(QWidget& form, const QString& langue, int points)
    {
        form.resize(form.size().boundedTo(PetitEcran));
        CadreEnFenetre::Laisser();
        GarderImage(form, u"%1%2-%3"_s.arg(form.objectName(), langue).arg(points));
        const std::string lieu = u"%1 at %2 %3"_s.arg(form.objectName()).arg(points).arg(langue).toStdString();
        EXPECT_EQ(Defauts(form), QStringList()) << lieu;
        EXPECT_EQ(form.size().boundedTo(PetitEcran), form.size()) << lieu;
        // The colours have nothing to do with language and size.
        if (langue.isEmpty() && points == 9)
            ControlerEnSombre(form);
    }

    const DialoguesDansLEcran m_dansLEcran;
    QFont m_police = QApplication::font();
};

} // namespace

TEST_F(Polices, WhatAnEmptyFrameOffers)
{
    const QStringList fichiers{document.dossier.Fichier("pochette.bmp"), u"/nulle/part/vinyles.qrt"_s};
    donnees += fichiers;
    donnees += {u"pochette.bmp"_s, u"pochette"_s, u"vinyles"_s};
    RegarderForm([&] {
        auto fond = std::make_unique<QWidget>();
        fond->setObjectName(u"accueil"_s);
        fond->resize(PetitEcran.width(), HauteurDeLaZone);
        auto* zone = new QWidget(fond.get());
        zone->resize(fond->size());
        zone->hide();
        auto* panneau = new PanneauDAccueil(*zone);
        panneau->MettreRecents(fichiers);
        panneau->MettreExemples(fichiers);
        return fond;
    });
}

TEST_F(Polices, TheDefinitionOfACategory)
{
    RegarderForm([] { return std::make_unique<frmAddCategorie2>(); });
}

TEST_F(Polices, TheEditorOfEntries)
{
    RegarderForm([this] {
        auto form = std::make_unique<frmEditEntree>();
        form->Table = &document.table;
        form->CheminImages = document.doc.TmpFolder;
        form->IndexEntree = 1;
        form->ChargerEntree();
        return form;
    });
}

TEST_F(Polices, ThePreRecordedTexts)
{
    RegarderForm([] {
        return std::make_unique<frmPreEnregistre>(
            ListesDeColonnes{{u"Titre"_s, QString()}, {u"Genre"_s, u"rock|jazz|blues"_s}, {u"Prêté à"_s, QString()}});
    });
}

TEST_F(Polices, TheNumberOfCopies)
{
    RegarderForm([] { return std::make_unique<frmCopieParLot>(); });
}

TEST_F(Polices, TheQuestionOfDependants)
{
    RegarderForm([] { return std::make_unique<frmSuppDependant>(); });
}

TEST_F(Polices, TheListOfWhatIsDeleted)
{
    Regarder([this](const std::function<void(QWidget&)>& controler) {
        const GardeModale garde([&](QWidget& form) {
            controler(form);
            form.close();
        });
        frmSuppr form;
        form.Lancer(document.doc);
    });
}

TEST_F(Polices, Lending)
{
    PlateformeDeTest::Courante().dossier.Ecrire("Zelvane.ini",
                                                "[Preter]\r\ncount=2\r\nNom1=Paul|paul@exemple.fr\r\nNom2=Ida|\r\n");
    RegarderForm([] {
        auto form = std::make_unique<frmPreter>(FichierZelvaneIni());
        form->findChild<QComboBox*>("noms")->setCurrentIndex(0);
        return form;
    });
    RegarderForm([] { return std::make_unique<frmContacts>(); });
    MyLV contacts;
    MettreColonnes(contacts, {"Nom", "Email"});
    donnees.append(u"Ajouter un Contact"_s); // in no language but this one; it is meant
    RegarderForm([&contacts] { return std::make_unique<frmContacts2>(contacts); });
    traduite = false;
    RegarderForm([] { return std::make_unique<frmMail>(); });
}

TEST_F(Polices, TheSettings)
{
    for (int page = 0; page < 4; ++page) {
        RegarderForm([page] {
            auto form = std::make_unique<frmOptions>();
            form->setObjectName(u"frmOptions-%1"_s.arg(page + 1));
            form->findChild<QTabWidget*>(u"tbsOptions"_s)->setCurrentIndex(page);
            return form;
        });
    }
    RegarderForm([] { return std::make_unique<frmPolice>(ReglagesDePolice()); });
}

TEST_F(Polices, TheLanguages)
{
    PlateformeDeTest::Courante().dossier.Ecrire("lang/english.ini", "");
    PlateformeDeTest::Courante().dossier.Ecrire("lang/deutsch.ini", "");
    RegarderForm([] { return std::make_unique<frmLang>([] {}); });
}

TEST_F(Polices, AboutTheProgram)
{
    donnees.append(About().findChild<QLabel*>(u"Label3_0"_s)->text()); // names and addresses
    RegarderForm([] {
        auto form = std::make_unique<About>();
        for (const char* nom : {"Label3_0", "Label3_1"})
            EXPECT_TRUE(form->findChild<QLabel*>(nom)->text().contains(u"Email : "_s)) << nom;
        return form;
    });
}

TEST_F(Polices, TheComments)
{
    ASSERT_TRUE(Commentaires::Ecrire(document.doc.TmpFolder, u"Prêté à Jean le 3 mars."_s));
    RegarderForm([this] {
        auto form = std::make_unique<frmCommentaires>();
        form->LoadTexte(document.doc.TmpFolder + Commentaires::NomDuFichier());
        return form;
    });
}

TEST_F(Polices, TheStartUpWindow)
{
    RegarderForm([] { return std::make_unique<frmPresent2>(); });
}

TEST_F(Polices, TheTips)
{
    PlateformeDeTest::Courante().dossier.Ecrire(
        "astuces.txt",
        "Une astuce qui prend bien plus d'une ligne de la fen\xeatre quand les lettres sont grandes.\r\n");
    donnees.append(u"Une astuce qui prend bien plus d'une ligne de la fenêtre quand les lettres sont grandes."_s);
    RegarderForm([] { return std::make_unique<frmTip>(); });
}

TEST_F(Polices, TheImagesOfACategory)
{
    RegarderForm([this] {
        auto form = std::make_unique<frmChangeImage>();
        form->Dossier = document.doc.TmpFolder;
        form->Remplir("pochette.bmp");
        return form;
    });
}

TEST_F(Polices, TheQuestionsOfImages)
{
    const QString image = document.dossier.Fichier("pochette.bmp");
    RegarderForm([&image] { return std::make_unique<frmSupprImg>(image); });
    RegarderForm([&image] { return std::make_unique<frmRemplacerImg>(image, image); });
}

TEST_F(Polices, TheEntryViewer)
{
    RegarderForm([this] {
        auto form = std::make_unique<frmView>();
        form->MyLV = &document.table;
        form->Dossier = document.doc.TmpFolder;
        form->Numero = 1;
        return form;
    });
}

TEST_F(Polices, ProgressTextAndPassword)
{
    RegarderForm([] {
        auto form = std::make_unique<frmAvancement>();
        form->Montrer(500'000, 1'000'000);
        return form;
    });
    donnees += {u"Nom de la nouvelle image :"_s, u"Mot de passe"_s, u"Mot de passe de « discotheque.qrt » :"_s};
    RegarderForm([] { return std::make_unique<frmInputText>(u"Nom de la nouvelle image :"_s, u"pochette.bmp"_s); });
    RegarderForm(
        [] { return std::make_unique<frmMotDePasse>(u"Mot de passe"_s, u"Mot de passe de « discotheque.qrt » :"_s); });
}

TEST_F(Polices, Messages)
{
    const QString question = u"Le fichier discotheque.qrt a été modifié par un autre programme depuis son ouverture. "
                             u"Voulez-vous l'enregistrer tout de même ?"_s;
    donnees += {question, u"Enregistrer"_s};
    for (const int genre : {0, 1, 2, 3, 4})
        RegarderForm([&] {
            auto form = std::make_unique<frmMsg>(question, genre, u"Enregistrer"_s);
            form->setObjectName(u"frmMsg-%1"_s.arg(genre));
            return form;
        });
}

TEST_F(Polices, WhatAKilledRunLeft)
{
    TexteDeCatalogue texte;
    texte.entrees = {"Abbey Road||"};
    PlateformeDeTest::Courante().dossier.Ecrire("temp/cat7/Zelvane.qrt", texte.Texte());
    Montrer();
    RegarderForm([this] { return std::make_unique<frmSecours>(*cadre, ChercherLaisses()); });
}

TEST_F(Polices, TheToolsOfColumns)
{
    RegarderForm([this] { return std::make_unique<frmEditerColonnes>(document.doc); });
    RegarderForm([this] { return std::make_unique<frmFusionner>(document.doc); });
    RegarderForm([this] { return std::make_unique<frmSeparerEn2>(document.doc); });
    RegarderForm([this] {
        auto form = std::make_unique<frmSeparerEn2>(document.doc);
        form->setObjectName("frmSeparerEn2-dupliquer");
        form->ServirADupliquer();
        return form;
    });
}

TEST_F(Polices, TheMappingOfColumns)
{
    RegarderForm([] {
        return std::make_unique<frmDragAndDrop>(
            Correspondre({"Titre", "Artiste", "Genre", "/tmp/cat7/"}, {"Titre", u"Prêté à"_s}));
    });
}

TEST_F(Polices, TheChooserOfColumns)
{
    RegarderForm([] {
        auto form = std::make_unique<frmExport>();
        form->AjouterColonne(u"Titre"_s, true);
        form->AjouterColonne(u"Artiste"_s, false);
        return form;
    });
}

TEST_F(Polices, TheStatistics)
{
    RegarderForm([this] { return std::make_unique<frmStat>(document.doc); });
}

TEST_F(Polices, ThePlugins)
{
    const DossierDePlugins plugins;
    DossierDePlugins::Mettre({u"autre1"_s, u"deux.points"_s});
    CadreDeTest autre;
    FenetreDocument& fenetre = autre.NouvelleFenetre();
    // What a plug-in says of itself stands behind words that are the same in each language.
    donnees.append(u"autre1\n\nDescription : Essaie\n\nVersion : 1.2b.3\n\nAuthor : Ida\n\nWebsite : "
                   u"https://exemple.invalid\n\nEmail : ida@exemple.invalid"_s);
    RegarderForm([&fenetre] { return std::make_unique<frmPlugins>(fenetre); });
}

TEST_F(Polices, ThePrintDialog)
{
    EcrireOption(Options::MessageImprim, false);
    donnees.append(u"Zelvane v2.2 by Morvenal - ## discotheque.qrt"_s);
    RegarderForm([this] {
        auto form = std::make_unique<frmPrint>(document.doc.TmpFolder);
        form->TexteEntete = u"%titre% - %nb% %nomcat%"_s;
        form->TitreImpression = u"Zelvane v2.2 by Morvenal"_s;
        form->NombreEntrees = u"##"_s;
        form->NomCategorie = u"discotheque.qrt"_s;
        form->ActualiseNomCat();
        form->MontrerImage(ImageDEnteteParDefaut());
        form->MontrerColonnes({{u"Titre"_s, 30}, {u"Artiste"_s, 20}, {u"Année"_s, 0}, {u"Prêté"_s, 30}});
        form->MontrerRangees(40);
        return form;
    });
}

TEST_F(Polices, ThePrintOptions)
{
    RegarderForm([this] {
        auto form = std::make_unique<frmPrintOptions>(document.doc.TmpFolder);
        form->MettreTextes(u"%titre% - %nb% %nomcat%"_s, u"Zelvane v2.2 by Morvenal"_s);
        return form;
    });
}

TEST_F(Polices, ThePagesToBePrinted)
{
    PagesComposees pages;
    pages.pages.resize(12);
    pages.pages[0].EcrireTexte(22, 12, u"Zelvane v2.2 by Morvenal - 40 discotheque.qrt",
                               pages.Police({u"Arial Black"_s, 15, false}));
    pages.pages[0].boites.push_back({10, 26, 90, 4});
    RegarderForm([&pages] { return std::make_unique<frmApercu>(pages, QImage()); });
}

TEST_F(Polices, TheSearch)
{
    Montrer();
    Form1& fenetre = Ouvrir("discotheque.qrt");
    RegarderForm([&fenetre] {
        auto form = std::make_unique<frmRecherche>();
        form->SetDocument(fenetre);
        QTest::keyClicks(form->findChild<QLineEdit*>(u"Text1"_s), u"abbey"_s);
        QTest::mouseClick(form->findChild<QWidget*>(u"btRecherche"_s), Qt::LeftButton);
        EXPECT_TRUE(form->findChild<QGroupBox*>(u"Frame1"_s)->accessibleName().endsWith(u"discotheque.qrt"_s));
        return form;
    });
}

TEST_F(Polices, TheComparison)
{
    Montrer();
    Ouvrir("discotheque.qrt");
    RegarderForm([this] {
        auto form = std::make_unique<frmCompare1>(*cadre);
        form->findChild<QComboBox*>("CategoriesList_0")->setCurrentIndex(0);
        return form;
    });
    const ColumnHeaders& colonnes = document.table.ColumnHeaders;
    RegarderForm([&colonnes] { return std::make_unique<frmCompare2>(colonnes, colonnes); });
}

TEST_F(Polices, TheFrameWithADocumentInDarkColours)
{
    Montrer();
    Form1& fenetre = Ouvrir("discotheque.qrt");
    fenetre.myqrt.Table.ListItems(1).SetSelected(true);
    Laisser();
    ControlerEnSombre(*cadre);
}

TEST_F(Polices, TheFrameWithADocument)
{
    Montrer();
    Ouvrir("discotheque.qrt");
    for (const bool grandes : {false, true}) {
        EcrireOption(Options::GrandesIcones, grandes);
        for (const int points : {9, 13, 18}) {
            QFont police = QApplication::font();
            police.setPointSize(points);
            QApplication::setFont(police);
            Laisser();
            const QSize moindre = cadre->minimumSizeHint().expandedTo(cadre->minimumSize());
            EXPECT_EQ(moindre.boundedTo(PetitEcran), moindre) << points << ' ' << grandes;
        }
    }
}
