#include "search/ComparaisonEnFenetre.h"
#include "support/Accessibilite.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "kit/UnitesEcran.h"
#include "platform/NomsSysteme.h"

#include <QFile>
#include <QSignalSpy>
#include <QTableWidget>

using namespace Qt::StringLiterals;

using FrmCompare1Test = ComparaisonEnFenetre;

// ---- the window

TEST_F(FrmCompare1Test, FromADocumentItIsNotModalAndFromTheFrameAloneItIs)
{
    frmCompare1& seule = Comparateur();
    EXPECT_TRUE(seule.isModal());
    QTest::keyClick(&seule, Qt::Key_Escape);
    Laisser();
    EXPECT_FALSE(Ouvert());

    OuvrirDeux();
    frmCompare1& form = Comparateur();
    EXPECT_FALSE(form.isModal());
    QTest::keyClick(&un->ListView1(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(un->myqrt.SelItemsCount(), 3) << "the user goes on working";
}

TEST_F(FrmCompare1Test, ASecondCommandBringsItToTheFront)
{
    frmCompare1& form = ComparateurDesDeux();
    cadre->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(cadre.get()));
    EXPECT_EQ(&Comparateur(), &form);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    EXPECT_EQ(Liste(form, 0).currentText(), un->myqrt.CheminReel());
    EXPECT_EQ(cadre->findChildren<frmCompare1*>().size(), 1);
}

TEST_F(FrmCompare1Test, AClosedOneGoesAndTheNextCommandMakesAnother)
{
    frmCompare1& form = ComparateurDesDeux();
    Cliquer(form, "Annuler");
    Laisser();
    EXPECT_TRUE(cadre->findChildren<frmCompare1*>().isEmpty());
    frmCompare1& autre = Comparateur();
    EXPECT_EQ(Liste(autre, 0).currentText(), "");
    autre.close();
    Laisser();
    EXPECT_TRUE(cadre->findChildren<frmCompare1*>().isEmpty());
}

TEST_F(FrmCompare1Test, ItsControlsCarryTheirTexts)
{
    const frmCompare1& form = Comparateur();
    EXPECT_EQ(form.windowTitle(), "Comparaisons de deux listes");
    const auto texte = [&form](const QString& nom) {
        return De<QWidget>(form, nom).property("text").toString().remove(u'&');
    };
    EXPECT_EQ(De<QWidget>(form, "Frame1").property("title"), "Listes à comparer");
    EXPECT_EQ(texte("Label1_0"), "Liste n°1");
    EXPECT_EQ(texte("Label1_1"), "Liste n°2");
    EXPECT_EQ(texte("Label2"), "Entrées de liste2 n'existant pas dans liste1 :");
    EXPECT_EQ(texte("Label3"), "Entrées de liste1 n'existant pas dans liste2 :");
    EXPECT_EQ(texte("btComparer"), "Comparer");
    EXPECT_EQ(texte("Annuler"), "Annuler");
    for (const char* bouton : {"parcourir_0", "parcourir_1", "btInverser", "btComparer", "Annuler", "imprimer"})
        EXPECT_FALSE(De<QPushButton>(form, bouton).icon().isNull()) << bouton;
}

TEST_F(FrmCompare1Test, ScreenReadersAreToldEveryControl)
{
    const frmCompare1& form = ComparateurDesDeux();
    EXPECT_EQ(ControlesSansNom(form), QStringList());
}

TEST_F(FrmCompare1Test, NoTwoControlsShareALetter)
{
    const frmCompare1& form = Comparateur();
    QStringList lettres;
    for (const QWidget* controle : form.findChildren<QWidget*>()) {
        const QString texte = controle->property("text").toString();
        if (const qsizetype place = texte.indexOf(u'&'); place >= 0)
            lettres.append(texte.mid(place + 1, 1).toUpper());
    }
    EXPECT_EQ(lettres.size(), 7);
    EXPECT_EQ(lettres.removeDuplicates(), 0);
}

TEST_F(FrmCompare1Test, TheTabKeyGoesByTheEye)
{
    frmCompare1& form = ComparateurDesDeux();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    Liste(form, 0).setFocus();
    QStringList noms;
    for (int i = 0; i < 10; ++i) {
        noms.append(form.focusWidget()->objectName());
        QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(noms, QStringList({"CategoriesList_0", "parcourir_0", "CategoriesList_1", "parcourir_1", "btInverser",
                                 "btComparer", "imprimer", "Annuler", "ListView2", "ListView1"}));
}

TEST_F(FrmCompare1Test, ItIsNeverSmallerThanItsLeastSize)
{
    frmCompare1& form = Comparateur();
    form.resize(10, 10);
    Laisser();
    EXPECT_GE(form.width(), PixelsDe(form, 7620));
    EXPECT_GE(form.height(), PixelsDe(form, 4000));
}

TEST_F(FrmCompare1Test, BothListsShareTheRoomAndTheSecondStandsOnTop)
{
    frmCompare1& form = Comparateur();
    form.resize(900, 800);
    Laisser();
    const auto place = [&form](const char* nom) {
        const QWidget& controle = De<QWidget>(form, nom);
        return QRect(controle.mapTo(&form, QPoint()), controle.size());
    };
    EXPECT_LE(qAbs(place("ListView1").height() - place("ListView2").height()), 1);
    EXPECT_EQ(place("ListView1").width(), place("ListView2").width());
    EXPECT_GT(place("ListView2").width(), 800);
    EXPECT_LT(place("Label2").bottom(), place("ListView2").top());
    EXPECT_LT(place("ListView2").bottom(), place("Label3").top());
    EXPECT_LT(place("Label3").bottom(), place("ListView1").top());
}

// ---- the choice

TEST_F(FrmCompare1Test, TheListsHaveThePathsOfTheOpenDocumentsAndShowNone)
{
    OuvrirDeux();
    un->myqrt.SetCheminReel(QString()); // as one that was never saved
    const frmCompare1& form = Comparateur();
    for (const int liste : {0, 1}) {
        ASSERT_EQ(Liste(form, liste).count(), 2);
        EXPECT_EQ(Liste(form, liste).itemText(0), "");
        EXPECT_EQ(Liste(form, liste).itemText(1), deux->myqrt.CheminReel());
        EXPECT_EQ(Liste(form, liste).currentText(), "");
        EXPECT_EQ(Liste(form, liste).currentIndex(), -1);
    }
}

TEST_F(FrmCompare1Test, WhatIsTypedStandsAsItIsTyped)
{
    OuvrirDeux();
    const frmCompare1& form = Comparateur();
    const QString debut = un->myqrt.CheminReel().chopped(2).toUpper();
    Saisir(form, 0, debut);
    EXPECT_EQ(Liste(form, 0).currentText(), debut) << "nothing completes it";
    QTest::keyClick(Liste(form, 0).lineEdit(), Qt::Key_Return);
    EXPECT_EQ(Liste(form, 0).count(), 2) << "and it becomes no line";
}

TEST_F(FrmCompare1Test, BrowsingPutsTheFileIntoItsList)
{
    const frmCompare1& form = Comparateur();
    const QString chemin = CheminDesOctets("/disques/\xE9t\xE9.qrt");
    dialogues.Preparer({chemin}, 1);
    Cliquer(form, "parcourir_1");
    EXPECT_EQ(Liste(form, 1).currentText(), chemin) << "bytes that are no UTF-8 too";
    EXPECT_EQ(Liste(form, 0).currentText(), "");
    dialogues.PreparerAnnulation();
    Cliquer(form, "parcourir_0");
    EXPECT_EQ(Liste(form, 0).currentText(), "");
    dialogues.PreparerAnnulation();
    Cliquer(form, "parcourir_1");
    EXPECT_EQ(Liste(form, 1).currentText(), chemin);

    ASSERT_EQ(dialogues.Demandes().size(), 3);
    EXPECT_EQ(dialogues.Demandes()[0].titre, "Recherche fichier 1");
    EXPECT_EQ(dialogues.Demandes()[1].titre, "Recherche fichier 0");
    ASSERT_EQ(dialogues.Demandes()[0].types.size(), 1);
    EXPECT_EQ(dialogues.Demandes()[0].types[0].libelle, "Fichier QRT");
    EXPECT_EQ(dialogues.Demandes()[0].types[0].motifs, "*.qrt");
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(FrmCompare1Test, TheTextsAreSwapped)
{
    const frmCompare1& form = ComparateurDesDeux();
    Saisir(form, 1, "b");
    Cliquer(form, "btInverser");
    EXPECT_EQ(Liste(form, 0).currentText(), "b");
    EXPECT_EQ(Liste(form, 1).currentText(), un->myqrt.CheminReel());
}

// ---- what is refused

TEST_F(FrmCompare1Test, TwoTextsAreNeeded)
{
    const frmCompare1& form = Comparateur();
    Cliquer(form, "btComparer");
    Saisir(form, 1, "x");
    Cliquer(form, "btComparer");
    Saisir(form, 0, "y");
    Saisir(form, 1, QString());
    Cliquer(form, "btComparer");
    EXPECT_EQ(Messages(), QStringList(3, "Il faut selectionner deux categories"));
    EXPECT_EQ(reponses.Affiches().first().titre, "");
    EXPECT_EQ(reponses.Affiches().first().genre, MsgOk);
    EXPECT_EQ(reponses.Affiches().first().message.cle, "");
}

TEST_F(FrmCompare1Test, EqualTextsAreRefusedAndTwoSpellingsAreNot)
{
    const QString chemin = Ecrire("un.qrt", {"Aja|||"});
    const frmCompare1& form = Comparateur();
    Saisir(form, 0, chemin);
    Saisir(form, 1, chemin);
    Cliquer(form, "btComparer");
    EXPECT_EQ(Messages(), QStringList("Il faut selectionner deux categories differentes"));
    EXPECT_TRUE(cadre->Documents().empty());

    const QString autrement = QString(chemin).insert(chemin.lastIndexOf(u'/'), u"/."_s);
    Saisir(form, 1, autrement);
    Comparer(*Ouvert());
    EXPECT_EQ(cadre->Documents().size(), 2) << "the same file, opened twice";
    EXPECT_EQ(Messages().last(), "Aucune difference ! les fichiers sont identiques");
}

TEST_F(FrmCompare1Test, AFileThatDoesNotOpenEndsItWithoutAWordOfItsOwn)
{
    const frmCompare1& form = ComparateurDesDeux();
    Saisir(form, 1, dossier.Fichier("absent.qrt"));
    Cliquer(form, "btComparer");
    EXPECT_EQ(reponses.Cles(), QStringList("msg49"));
    EXPECT_EQ(form.windowTitle(), "Comparaisons de deux listes");
    EXPECT_EQ(un->myqrt.Table.SortKey(), 0);
}

TEST_F(FrmCompare1Test, ALineWhoseDocumentWasClosedIsNotOpenedAgain)
{
    const frmCompare1& form = ComparateurDesDeux();
    deux->Decharger();
    Laisser();
    Cliquer(form, "btComparer");
    EXPECT_EQ(cadre->Documents().size(), 1);
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(FrmCompare1Test, ACategoryWithoutEntriesIsNotComparedAndNoColumnsAreAskedFor)
{
    const frmCompare1& form = ComparateurDesDeux();
    deux->myqrt.Table.ListItems.Clear();
    Cliquer(form, "btComparer");
    EXPECT_EQ(Messages(), QStringList("La deuxième catégorie ne contient pas d'entrée.\n"
                                      "Il n'y a pas de comparaison à faire"));
    Cliquer(form, "btInverser");
    Cliquer(form, "btComparer");
    EXPECT_EQ(Messages().last(), "La première catégorie ne contient pas d'entrée.\n"
                                 "Il n'y a pas de comparaison à faire");
    EXPECT_EQ(De<QProgressBar>(form, "progress").maximum(), 4);
    EXPECT_EQ(De<QProgressBar>(form, "progress").value(), 0);
}

// ---- the comparison

TEST_F(FrmCompare1Test, BothListsShowWhatIsMissing)
{
    frmCompare1& form = ComparateurDesDeux();
    Comparer(form);
    EXPECT_EQ(Colonne(form, "ListView1"), QStringList("Nana"));
    EXPECT_EQ(Colonne(form, "ListView1", 2), QStringList("Zola"));
    EXPECT_EQ(Colonne(form, "ListView2"), QStringList({"Bof", "Zut"}));
    EXPECT_EQ(Colonne(form, "ListView2", 2), QStringList({"Abba", "Zappa"}));
    EXPECT_EQ(form.windowTitle(), "Resultats: 2>1: 2 - 1>2: 1");
    EXPECT_TRUE(Messages().isEmpty());
    const QProgressBar& progress = De<QProgressBar>(form, "progress");
    EXPECT_EQ(progress.maximum(), 8);
    EXPECT_EQ(progress.value(), 0);
    EXPECT_TRUE(progress.isHidden()) << "empty it would look like a field";
}

TEST_F(FrmCompare1Test, TheListsHaveTheColumnsOfTheirDocuments)
{
    frmCompare1& form = ComparateurDesDeux();
    deux->myqrt.Table.ColumnHeaders(2).SetText("Groupe");
    Comparer(form);
    for (const auto& [vue, titre] : {std::pair("ListView1", "Artiste"), std::pair("ListView2", "Groupe")}) {
        const VueDesLignes& liste = De<VueDesLignes>(form, vue);
        EXPECT_EQ(liste.Colonnes().Count(), 3);
        EXPECT_EQ(liste.Colonnes()(2).Text(), titre);
        EXPECT_EQ(liste.columnWidth(0), PixelsDe(form, 2880));
        EXPECT_EQ(liste.columnWidth(1), PixelsDe(form, 1440));
    }
}

TEST_F(FrmCompare1Test, ProgressIsTheSumOfBothPositions)
{
    frmCompare1& form = ComparateurDesDeux();
    const QSignalSpy valeurs(&De<QProgressBar>(form, "progress"), &QProgressBar::valueChanged);
    Comparer(form);
    // The merge ends with the first table, at 4 and 4, which is all there is; before and behind it stands 0.
    QList<int> suite;
    for (const QList<QVariant>& valeur : valeurs)
        suite.append(valeur.first().toInt());
    EXPECT_EQ(suite, QList<int>({8, 0}));
}

TEST_F(FrmCompare1Test, OtherColumnsAreChosenByTheKeys)
{
    frmCompare1& form = ComparateurDesDeux();
    Comparer(form, 1, 0);
    EXPECT_EQ(Colonne(form, "ListView1"), QStringList({"Takk", "Aja", "Nana"})) << "in the order of their artists";
    EXPECT_EQ(form.windowTitle(), "Resultats: 2>1: 4 - 1>2: 3");
}

TEST_F(FrmCompare1Test, FilesThatAreNotOpenAreOpenedAndStaySo)
{
    frmCompare1& form = Comparateur();
    ASSERT_TRUE(form.isModal());
    Saisir(form, 0, Ecrire("un.qrt", {"Aja|||", "Takk|||"}));
    Saisir(form, 1, Ecrire("deux.qrt", {"Takk|||"}));
    Comparer(form);
    EXPECT_EQ(Titres(), QStringList({"un.qrt", "deux.qrt"}));
    EXPECT_EQ(Colonne(form, "ListView1"), QStringList("Aja"));
    EXPECT_EQ(form.windowTitle(), "Resultats: 2>1: 0 - 1>2: 1");
    EXPECT_EQ(Messages(),
              QStringList(u"Toutes les entrees du fichier \"%1\"  sont presentes dans le fichier \"%2\""_s.arg(
                  dossier.Fichier("un.qrt"), dossier.Fichier("deux.qrt"))));
    form.close();
    Laisser();
    EXPECT_EQ(cadre->Documents().size(), 2);
}

TEST_F(FrmCompare1Test, ItComesToTheFrontOnceTheFilesAreOpen)
{
    OuvrirDeux();
    frmCompare1& form = Comparateur();
    Liste(form, 0).setCurrentIndex(0);
    Saisir(form, 1, Ecrire("trois.qrt", {}));
    cadre->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(cadre.get()));
    Cliquer(form, "btComparer");
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form)) << "also where there is nothing to compare";
    EXPECT_EQ(Messages().size(), 1);
}

TEST_F(FrmCompare1Test, AFileWhoseNameIsNoUtf8IsCompared)
{
    OuvrirDeux();
    frmCompare1& form = Comparateur();
    Liste(form, 0).setCurrentIndex(0);
    dialogues.Preparer({Ecrire(CheminDesOctets("\xE9t\xE9.qrt"), {"Aja|||"})}, 1);
    Cliquer(form, "parcourir_1");
    Comparer(form);
    EXPECT_EQ(Colonne(form, "ListView1"), QStringList({"Nana", "Takk"}));
}

TEST_F(FrmCompare1Test, EqualCategoriesAreToldInAnyOrder)
{
    OuvrirAvec("un.qrt", {"a|||", "B|||", "c|||"});
    OuvrirAvec("deux.qrt", {"C|||", "b|||", "a|||"});
    frmCompare1& form = Comparateur();
    Liste(form, 0).setCurrentIndex(0);
    Liste(form, 1).setCurrentIndex(1);
    Comparer(form);
    EXPECT_EQ(Messages(), QStringList("Aucune difference ! les fichiers sont identiques"));
    EXPECT_EQ(reponses.Affiches().first().titre, "");
    EXPECT_EQ(form.windowTitle(), "Resultats: 2>1: 0 - 1>2: 0");
}

TEST_F(FrmCompare1Test, TheNextComparisonTakesTheListsAnew)
{
    frmCompare1& form = ComparateurDesDeux();
    Comparer(form);
    Cliquer(form, "btInverser");
    Comparer(form);
    EXPECT_EQ(Colonne(form, "ListView1"), QStringList({"Bof", "Zut"}));
    EXPECT_EQ(Colonne(form, "ListView2"), QStringList("Nana"));
    EXPECT_EQ(form.windowTitle(), "Resultats: 2>1: 1 - 1>2: 2");
}

TEST_F(FrmCompare1Test, TheDocumentsGetTheirSortBackAndAreNotChanged)
{
    frmCompare1& form = ComparateurDesDeux();
    un->myqrt.Table.SetSortKey(1);
    un->myqrt.Table.SetSortOrder(1);
    deux->myqrt.Table.SetSorted(false);
    const QStringList avant = ColonneDe(un->myqrt.Table, 1);
    Comparer(form, 0, 1);
    EXPECT_EQ(ColonneDe(un->myqrt.Table, 1), avant);
    EXPECT_EQ(un->myqrt.Table.SortKey(), 1);
    EXPECT_EQ(un->myqrt.Table.SortOrder(), 1);
    EXPECT_EQ(deux->myqrt.Table.SortKey(), 0);
    EXPECT_TRUE(deux->myqrt.Table.Sorted());
    EXPECT_FALSE(un->myqrt.IlFautSauver);
    EXPECT_FALSE(deux->myqrt.IlFautSauver);
}

TEST_F(FrmCompare1Test, TheResultsStayWhenTheDocumentsAreClosed)
{
    frmCompare1& form = ComparateurDesDeux();
    Comparer(form);
    un->Decharger();
    deux->Decharger();
    Laisser();
    EXPECT_EQ(Colonne(form, "ListView1"), QStringList("Nana"));
    EXPECT_EQ(Colonne(form, "ListView2", 2), QStringList({"Abba", "Zappa"}));
}

// ---- the dialog of the columns

TEST_F(FrmCompare1Test, TheColumnsAreAskedFor)
{
    frmCompare1& form = ComparateurDesDeux();
    deux->myqrt.Table.ColumnHeaders(1).SetText("Nom");
    Comparer(form, 0, 0, [](QWidget& colonnes) {
        EXPECT_EQ(colonnes.windowTitle(), "Comparaison de deux listes(suite)");
        EXPECT_TRUE(colonnes.isModal());
        const auto texte = [&colonnes](const QString& nom) { return De<QLabel>(colonnes, nom).text().remove(u'&'); };
        EXPECT_EQ(texte("Label1_0"), "Veuillez séléctionner les colonnes que l'on va comparer");
        EXPECT_EQ(texte("Label1_1"), "Liste n°1");
        EXPECT_EQ(texte("Label1_2"), "Liste n°2");
        const QComboBox& premiere = De<QComboBox>(colonnes, "Colonne_0");
        const QComboBox& seconde = De<QComboBox>(colonnes, "Colonne_1");
        EXPECT_FALSE(premiere.isEditable());
        EXPECT_EQ(premiere.count(), 3);
        EXPECT_EQ(premiere.currentText(), "Titre");
        EXPECT_EQ(seconde.currentText(), "Nom");
        EXPECT_EQ(seconde.itemText(2), "Prêté");
        EXPECT_EQ(De<QPushButton>(colonnes, "btComparer").toolTip(), "Lancer la comparaison");
        EXPECT_FALSE(De<QPushButton>(colonnes, "btComparer").icon().isNull());
        EXPECT_FALSE(De<QPushButton>(colonnes, "Annuler").icon().isNull());
        EXPECT_EQ(ControlesSansNom(colonnes), QStringList());
    });
}

TEST_F(FrmCompare1Test, CancellingTheColumnsLeavesAllAsItIs)
{
    frmCompare1& form = ComparateurDesDeux();
    Comparer(form);
    un->myqrt.Table.SetSorted(false);
    const uint64_t generation = un->myqrt.Table.Generation();
    for (const bool echappe : {false, true}) {
        const GardeModale garde([echappe](QWidget& colonnes) {
            if (echappe)
                QTest::keyClick(&colonnes, Qt::Key_Escape);
            else
                Cliquer(colonnes, "Annuler");
        });
        Cliquer(form, "btComparer");
    }
    EXPECT_EQ(un->myqrt.Table.Generation(), generation) << "nothing was sorted";
    EXPECT_EQ(Colonne(form, "ListView1"), QStringList("Nana"));
    EXPECT_EQ(form.windowTitle(), "Resultats: 2>1: 2 - 1>2: 1");
}

TEST_F(FrmCompare1Test, AColumnWithoutATitleIsNotAccepted)
{
    frmCompare1& form = ComparateurDesDeux();
    un->myqrt.Table.ColumnHeaders(1).SetText(QString());
    Comparer(form, 0, 0, [](QWidget& colonnes) {
        Cliquer(colonnes, "btComparer");
        EXPECT_TRUE(colonnes.isVisible());
        QTest::keyClick(&De<QComboBox>(colonnes, "Colonne_0"), Qt::Key_Down);
    });
    EXPECT_EQ(Messages(), QStringList("Il faut selectionner deux Colonnes"));
    EXPECT_EQ(form.windowTitle(), "Resultats: 2>1: 4 - 1>2: 3") << "by the second column";
}

// ---- what is done with the results

TEST_F(FrmCompare1Test, TitlesSortTheSecondListAlone)
{
    frmCompare1& form = ComparateurDesDeux();
    Comparer(form, 2, 1);
    const auto cliquer = [&form](const char* vue, int colonne) {
        QHeaderView& titres = *De<VueDesLignes>(form, vue).horizontalHeader();
        QTest::mouseClick(titres.viewport(), Qt::LeftButton, {},
                          QPoint(titres.sectionViewportPosition(colonne - 1) + 20, titres.height() / 2));
    };
    ASSERT_EQ(Colonne(form, "ListView2"), QStringList({"Bof", "Takk", "aja", "Zut"}));
    cliquer("ListView2", 1);
    EXPECT_EQ(Colonne(form, "ListView2"), QStringList({"Zut", "Takk", "Bof", "aja"})) << "SortKey was 0 already";
    cliquer("ListView2", 1);
    EXPECT_EQ(Colonne(form, "ListView2"), QStringList({"aja", "Bof", "Takk", "Zut"}));
    cliquer("ListView2", 2);
    EXPECT_EQ(Colonne(form, "ListView2"), QStringList({"Bof", "Takk", "aja", "Zut"}));
    EXPECT_EQ(De<VueDesLignes>(form, "ListView2").Colonnes()(2).Icon(), "down");
    EXPECT_EQ(De<VueDesLignes>(form, "ListView2").Colonnes()(1).Icon(), "");

    const QStringList avant = Colonne(form, "ListView1");
    ASSERT_EQ(avant.size(), 3);
    const QSignalSpy clics(&De<VueDesLignes>(form, "ListView1"), &VueDesLignes::EnteteCliquee);
    cliquer("ListView1", 1);
    cliquer("ListView1", 2);
    EXPECT_EQ(Colonne(form, "ListView1"), avant);
    EXPECT_EQ(clics.count(), 0) << "its titles are none to press";
    EXPECT_EQ(deux->myqrt.Table.SortKey(), 0);
}

TEST_F(FrmCompare1Test, DeleteCleansTheSecondListAndNoDocument)
{
    frmCompare1& form = ComparateurDesDeux();
    Comparer(form, 0, 1);
    VueDesLignes& liste = De<VueDesLignes>(form, "ListView2");
    ASSERT_EQ(Colonne(form, "ListView2"), QStringList({"Bof", "Takk", "aja", "Zut"}));
    QTest::mouseClick(liste.viewport(), Qt::LeftButton, {}, liste.visualRect(liste.model()->index(1, 0)).center());
    QTest::mouseClick(liste.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      liste.visualRect(liste.model()->index(3, 0)).center());
    for (const Qt::KeyboardModifier touche : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier})
        QTest::keyClick(&liste, Qt::Key_Delete, touche);
    EXPECT_EQ(Colonne(form, "ListView2").size(), 4);
    QTest::keyClick(&liste, Qt::Key_Delete);
    EXPECT_EQ(Colonne(form, "ListView2"), QStringList({"Bof", "aja"}));
    EXPECT_EQ(deux->myqrt.ItemsCount(), 4);
    EXPECT_FALSE(deux->myqrt.IlFautSauver);

    VueDesLignes& premiere = De<VueDesLignes>(form, "ListView1");
    for (VueDesLignes* vue : {&liste, &premiere})
        QTest::keyClick(vue, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&premiere, Qt::Key_Delete);
    EXPECT_EQ(Colonne(form, "ListView1").size(), 3) << "it has no such reaction";
    EXPECT_EQ(Colonne(form, "ListView2").size(), 2);
}

TEST_F(FrmCompare1Test, EnterInAListComparesNothingAnew)
{
    frmCompare1& form = ComparateurDesDeux();
    Comparer(form);
    for (const char* vue : {"ListView1", "ListView2"})
        QTest::keyClick(&De<VueDesLignes>(form, vue), Qt::Key_Return);
    EXPECT_FALSE(QApplication::activeModalWidget());
    EXPECT_EQ(form.windowTitle(), "Resultats: 2>1: 2 - 1>2: 1");
}

TEST_F(FrmCompare1Test, OnlyTheSecondListIsPrinted)
{
    frmCompare1& form = ComparateurDesDeux();
    deux->myqrt.Table.ListItems.Clear();
    AjouterEntrees(deux->myqrt.Table, {{"Aja", ""}});
    Comparer(form);
    ASSERT_EQ(Colonne(form, "ListView1").size(), 2);
    const qsizetype avant = Messages().size();
    Cliquer(form, "imprimer");
    EXPECT_EQ(Messages().mid(avant), QStringList("Il n'y a rien à imprimer"));
    Cliquer(form, "btInverser");
    Comparer(form);
    EcrireOption(Options::MessageImprim, false);
    const qsizetype apres = Messages().size();
    const GardeModale garde([](QWidget& dialogue) {
        EXPECT_EQ(dialogue.objectName(), "frmPrint");
        EXPECT_TRUE(dialogue.findChild<QLabel*>("NomCat")->text().contains(u"entrées non présentes dans "_s));
        EXPECT_EQ(De<QTableWidget>(dialogue, "Largeurs").rowCount(), 3);
        dialogue.close();
    });
    Cliquer(form, "imprimer");
    EXPECT_EQ(Messages().size(), apres);
    EXPECT_TRUE(QFile::exists(DossierProgramme() + u"print.ini"_s)) << "all comparisons share these";
}
