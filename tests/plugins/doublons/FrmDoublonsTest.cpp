#include "frmDoublons.h"

#include "FormeDeDoublons.h"
#include "Registre.h"
#include "extensions/langue/modLang.h"
#include "support/GardeModale.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

class FrmDoublonsTest : public testing::Test
{
protected:
    void Ouvrir()
    {
        form = std::make_unique<frmDoublons>(document);
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    /// Clicks on "Supprimer" and answers what is asked; returns the question.
    QString Supprimer(const char* bouton)
    {
        QString texte;
        const GardeModale garde([&](QWidget& fenetre) {
            auto& question = dynamic_cast<QMessageBox&>(fenetre);
            texte = question.text();
            EXPECT_EQ(question.defaultButton()->text(), u"&Annuler"_s) << "Enter deletes nothing";
            for (QAbstractButton* ici : question.buttons()) {
                if (ici->text() == QString::fromUtf8(bouton))
                    QTest::mouseClick(ici, Qt::LeftButton);
            }
        });
        Cliquer(*form, "Supprimer");
        return texte;
    }

    DocumentEnMemoire document{{u"Titre"_s, u"Artiste"_s, u"Prêté"_s},
                               {{u"Aja"_s, u"Steely Dan"_s, QString()},
                                {u"Blue"_s, u"Joni Mitchell"_s, QString()},
                                {u"Aja"_s, u"Steely Dan"_s, u"Paul - 13/09/2005"_s},
                                {u"aja !"_s, u"Dan Steely"_s, QString()},
                                {u"Blue"_s, u"Joni Mitchell"_s, QString()},
                                {u"Chet"_s, u"Chet Baker"_s, QString()}},
                               3};
    std::unique_ptr<frmDoublons> form;
};

} // namespace

TEST_F(FrmDoublonsTest, AllColumnsButThatOfTheLoansAreComparedFirst)
{
    Ouvrir();
    EXPECT_EQ(form->windowTitle(), "Doublons");
    const auto& colonnes = Trouver<QListWidget>(*form, "Colonnes");
    ASSERT_EQ(colonnes.count(), 3);
    EXPECT_EQ(colonnes.item(2)->text(), u"Prêté"_s);
    EXPECT_EQ(colonnes.item(0)->checkState(), Qt::Checked);
    EXPECT_EQ(colonnes.item(1)->checkState(), Qt::Checked);
    EXPECT_EQ(colonnes.item(2)->checkState(), Qt::Unchecked);
    EXPECT_TRUE(Trouver(*form, "Egales").isChecked());
    for (const char* nom : {"SaufPremier", "SaufComplet", "Decocher", "Supprimer"})
        EXPECT_FALSE(Trouver(*form, nom).isEnabled()) << nom;
}

TEST_F(FrmDoublonsTest, EqualOnesAreShownAsGroups)
{
    Ouvrir();
    Cliquer(*form, "Chercher");
    EXPECT_EQ(Trouves(*form), u"1 3 (prêtée), 2 5"_s);
    EXPECT_EQ(Texte(*form, "Resultat"), u"Groupes : 2, entrées : 4"_s);
    EXPECT_EQ(Texte(*form, "Compte"), u"Cochées : 0 sur 4"_s);
    EXPECT_TRUE(Arbre(*form).hasFocus());
}

TEST_F(FrmDoublonsTest, NearOnesAreFoundWhereAskedFor)
{
    Ouvrir();
    Cliquer(*form, "Presque");
    Cliquer(*form, "Chercher");
    EXPECT_EQ(Trouves(*form), u"1 3 (prêtée) 4, 2 5"_s);
}

TEST_F(FrmDoublonsTest, TheColumnsThatAreCheckedAreCompared)
{
    Ouvrir();
    CliquerSurColonne(*form, 1);
    CliquerSurColonne(*form, 2);
    EXPECT_FALSE(Trouver(*form, "Chercher").isEnabled()) << "there is no column to compare";
    CliquerSurColonne(*form, 3);
    Cliquer(*form, "Chercher");
    EXPECT_EQ(Trouves(*form), QString());
    EXPECT_EQ(Texte(*form, "Resultat"), "Aucun doublon");
    EXPECT_FALSE(Trouver(*form, "SaufPremier").isEnabled());
    auto& vides = Trouver<QComboBox>(*form, "Vides");
    vides.setFocus();
    QTest::keyClick(&vides, Qt::Key_Up);
    Cliquer(*form, "Chercher");
    EXPECT_EQ(Trouves(*form), "1 2 4 5 6") << "empty cells are equal now";
}

TEST_F(FrmDoublonsTest, AllButOneOfEachGroupAreChecked)
{
    document.lignes[4][0] = u"Blue "_s; // longer
    Ouvrir();
    Cliquer(*form, "Presque");
    Cliquer(*form, "Chercher");
    Cliquer(*form, "SaufPremier");
    EXPECT_EQ(Trouves(*form), u"1 3 (prêtée) 4x, 2 5x"_s) << "the one that is lent is left to the user";
    EXPECT_EQ(Texte(*form, "Compte"), u"Cochées : 2 sur 5"_s);
    Cliquer(*form, "SaufComplet");
    EXPECT_EQ(Trouves(*form), u"1x 3 (prêtée) 4x, 2x 5"_s);
    Cliquer(*form, "Decocher");
    EXPECT_EQ(Trouves(*form), u"1 3 (prêtée) 4, 2 5"_s);
    EXPECT_FALSE(Trouver(*form, "Supprimer").isEnabled());
}

TEST_F(FrmDoublonsTest, WhatIsCheckedIsDeletedAfterAQuestion)
{
    Ouvrir();
    Cliquer(*form, "Chercher");
    Cliquer(*form, "SaufPremier");
    EXPECT_EQ(Supprimer("&Annuler"), u"Supprimer les entrées cochées (1) ?"_s);
    EXPECT_TRUE(document.supprimees.isEmpty());
    EXPECT_EQ(Trouves(*form), u"1 3 (prêtée), 2 5x"_s);
    Supprimer("&Supprimer");
    EXPECT_EQ(document.supprimees, QList<int>({5}));
    EXPECT_EQ(Trouves(*form), u"1 3 (prêtée)"_s);
    EXPECT_EQ(Texte(*form, "Resultat"), u"Groupes : 1, entrées : 2"_s);
    EXPECT_EQ(document.Lignes(), 5);
}

TEST_F(FrmDoublonsTest, TheQuestionTellsOfLoansAndOfGroupsThatGoWhole)
{
    Ouvrir();
    Cliquer(*form, "Chercher");
    QTest::keyClick(&Arbre(*form), Qt::Key_Down);
    QTest::keyClick(&Arbre(*form), Qt::Key_Space);
    QTest::keyClick(&Arbre(*form), Qt::Key_Down);
    QTest::keyClick(&Arbre(*form), Qt::Key_Space);
    EXPECT_EQ(Trouves(*form), u"1x 3 (prêtée)x, 2 5"_s);
    EXPECT_EQ(Supprimer("&Supprimer"), u"Supprimer les entrées cochées (2) ?\n\nEntrées prêtées parmi elles : "
                                       "1.\n\nGroupes dont il ne restera rien : 1."_s);
    EXPECT_EQ(document.supprimees, QList<int>({1, 3}));
    EXPECT_EQ(Trouves(*form), "1 3");
}

TEST_F(FrmDoublonsTest, AMarkIsClickedInTheTree)
{
    Ouvrir();
    Cliquer(*form, "Chercher");
    QAbstractItemView& arbre = Arbre(*form);
    const QRect place = arbre.visualRect(arbre.model()->index(1, 0, arbre.model()->index(1, 0)));
    QTest::mouseClick(arbre.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(place.left() + 10, place.center().y()));
    EXPECT_EQ(Trouves(*form), u"1 3 (prêtée), 2 5x"_s);
}

TEST_F(FrmDoublonsTest, TheKeyboardAloneDoes)
{
    Ouvrir();
    EXPECT_TRUE(Trouver<QListWidget>(*form, "Colonnes").hasFocus());
    // A button that a key of its own presses is seen down for a moment.
    const auto presser = [](QWidget& fenetre, Qt::Key touche, const std::function<bool()>& fait) {
        QTest::keyClick(&fenetre, touche, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor(fait, 60000)) << touche;
    };
    presser(*form, Qt::Key_P, [this] { return Trouver(*form, "Presque").isChecked(); });
    QTest::keyClick(form.get(), Qt::Key_Return);
    EXPECT_EQ(Trouves(*form), u"1 3 (prêtée) 4, 2 5"_s);
    presser(*form, Qt::Key_R, [this] { return Modele(*form).LesGroupes().NbCoches() > 0; });
    EXPECT_EQ(Trouves(*form), u"1 3 (prêtée) 4x, 2 5x"_s);
    {
        const GardeModale garde(
            [&](QWidget& question) {
                ASSERT_TRUE(QTest::qWaitForWindowActive(&question, 60000));
                presser(question, Qt::Key_S, [&] { return !question.isVisible(); });
            },
            60000);
        presser(*form, Qt::Key_S, [this] { return !document.supprimees.isEmpty(); });
    }
    EXPECT_EQ(document.supprimees, QList<int>({4, 5}));
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(FrmDoublonsTest, ASearchIsGivenUpAndTheWindowStays)
{
    for (const char* comment : {"bouton", "touche", "fenetre"}) {
        document.lignes.clear();
        for (int i = 0; i < 30000; ++i)
            document.lignes.append({u"t"_s, u"a"_s, QString()});
        int lectures = 0;
        document.pendantLecture = [&] {
            // Once only, and late enough for the dialog to look at what was done.
            QTest::qSleep(45);
            if (++lectures != 2)
                return;
            EXPECT_FALSE(Trouver(*form, "Chercher").isEnabled());
            EXPECT_FALSE(Trouver(*form, "Fermer").isEnabled());
            if (comment == QLatin1StringView("bouton"))
                Cliquer(*form, "Annuler");
            else if (comment == QLatin1StringView("touche"))
                QTest::keyClick(form.get(), Qt::Key_Escape);
            else
                form->close();
        };
        Ouvrir();
        Cliquer(*form, "Chercher");
        EXPECT_EQ(lectures, 2) << comment;
        EXPECT_TRUE(form->isVisible()) << comment;
        EXPECT_EQ(Texte(*form, "Resultat"), u"La recherche a été abandonnée."_s);
        EXPECT_EQ(Trouves(*form), QString());
        document.pendantLecture = nullptr;
        Cliquer(*form, "Chercher");
        EXPECT_EQ(Modele(*form).LesGroupes().Count(), 1) << "it starts anew";
    }
}

TEST_F(FrmDoublonsTest, TheBarTellsHowFarItIs)
{
    document.lignes.clear();
    for (int i = 0; i < 30000; ++i)
        document.lignes.append({QString::number(i), u"a"_s, QString()});
    QList<int> valeurs;
    document.pendantLecture = [&] {
        QTest::qSleep(45);
        auto& barre = Trouver<QProgressBar>(*form, "Barre");
        EXPECT_TRUE(barre.isVisible());
        valeurs.append(barre.value());
    };
    Ouvrir();
    Cliquer(*form, "Chercher");
    ASSERT_GE(valeurs.size(), 8);
    EXPECT_TRUE(std::is_sorted(valeurs.begin(), valeurs.end()));
    EXPECT_GT(valeurs.last(), 100);
}

TEST_F(FrmDoublonsTest, ATableWithoutColumnsOrEntriesIsHarmless)
{
    DocumentEnMemoire vide({}, {});
    frmDoublons sans(vide);
    sans.show();
    EXPECT_FALSE(Trouver(sans, "Chercher").isEnabled());
    document.lignes.clear();
    Ouvrir();
    Cliquer(*form, "Chercher");
    EXPECT_EQ(Texte(*form, "Resultat"), "Aucun doublon");
}

namespace {

QString Mnemoniques(const QWidget& form)
{
    QStringList doubles;
    QString vus;
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        const auto* bouton = qobject_cast<const QAbstractButton*>(widget);
        const auto* libelle = qobject_cast<const QLabel*>(widget);
        const QString texte = bouton ? bouton->text() : libelle && libelle->buddy() ? libelle->text() : QString();
        const qsizetype ou = texte.indexOf(u'&');
        if (ou < 0)
            continue;
        const QChar lettre = texte[ou + 1].toUpper();
        if (vus.contains(lettre))
            doubles << texte;
        vus += lettre;
    }
    return doubles.join(u", "_s);
}

} // namespace

TEST_F(FrmDoublonsTest, EveryLanguageFitsASmallScreenAtEverySize)
{
    const QFont avant = QApplication::font();
    const RegistreDeTest registre;
    const QDir langues(QStringLiteral(LANGUES));
    for (const QString& langue : QStringList(QString()) + langues.entryList({u"*.ini"_s}, QDir::Files)) {
        FichierLangue = langue.isEmpty() ? QString() : langues.filePath(langue);
        for (const int points : {9, 13, 18}) {
            QFont police = avant;
            police.setPointSize(points);
            QApplication::setFont(police);
            Ouvrir();
            Cliquer(*form, "Presque");
            Cliquer(*form, "Chercher");
            Cliquer(*form, "SaufPremier");
            form->resize(form->size().boundedTo({1024 - 16, 600 - 40}));
            QTest::qWait(0);
            const std::string lieu = langue.toStdString() + std::to_string(points);
            if (const QByteArray dossier = qgetenv("POLICES_IMAGES"); !dossier.isEmpty())
                form->grab().save(u"%1/doublons-%2%3.png"_s.arg(QString::fromLocal8Bit(dossier), langue).arg(points));
            EXPECT_LE(form->width(), 1024 - 16) << lieu;
            EXPECT_LE(form->height(), 600 - 40) << lieu;
            EXPECT_EQ(Mnemoniques(*form), QString()) << lieu;
            for (const QAbstractButton* bouton : form->findChildren<QAbstractButton*>()) {
                if (bouton->isVisible() && !bouton->objectName().isEmpty()) {
                    EXPECT_GE(bouton->width(), bouton->sizeHint().width())
                        << lieu << bouton->objectName().toStdString();
                }
            }
            EXPECT_GE(Trouver<QLabel>(*form, "Compte").width(), Trouver<QLabel>(*form, "Compte").sizeHint().width())
                << lieu;
        }
    }
    FichierLangue.clear();
    QApplication::setFont(avant);
}
