#include "extensions/dialogues/AideDesFenetres.h"

#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QDialog>
#include <QDir>
#include <QDirIterator>
#include <QLineEdit>
#include <QMainWindow>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class AideDesFenetresTest : public testing::Test
{
protected:
    /// The pages that were shown after a key in a field of a window of that name.
    template<typename Fenetre>
    QStringList Presser(const QString& nom, Qt::KeyboardModifiers avec = Qt::NoModifier, Qt::Key touche = Qt::Key_F1)
    {
        m_plateforme.programmes.fichiers.clear();
        Fenetre fenetre;
        fenetre.setObjectName(nom);
        QLineEdit champ(&fenetre);
        fenetre.show();
        QTest::keyClick(&champ, touche, avec);
        QStringList pages;
        for (const QString& chemin : m_plateforme.programmes.fichiers)
            pages.append(chemin.mid(chemin.lastIndexOf('/') + 1));
        return pages;
    }
    void Ecrire(std::initializer_list<const char*> pages)
    {
        for (const char* page : pages)
            m_plateforme.dossier.Ecrire(QString("AideQrt/") + page + ".html", "<p>");
    }

    PlateformeDeTest& m_plateforme = PlateformeDeTest::Courante();
    FileDeReponses m_reponses;
    const AideDesFenetres m_aide;
};

TEST_F(AideDesFenetresTest, F1ShowsThePageOfTheWindow)
{
    Ecrire({"aideZelvane", "rechercher", "colonnes"});
    EXPECT_EQ(Presser<QDialog>("frmRecherche"), QStringList{"rechercher.html"}) << "and once";
    EXPECT_EQ(Presser<QDialog>("frmSeparerEn2"), QStringList{"colonnes.html"});
    EXPECT_EQ(Presser<QDialog>("frmMsg"), QStringList{"aideZelvane.html"});
}

TEST_F(AideDesFenetresTest, OtherKeysShowNothing)
{
    Ecrire({"aideZelvane"});
    EXPECT_EQ(Presser<QDialog>("frmRecherche", Qt::ShiftModifier), QStringList());
    EXPECT_EQ(Presser<QDialog>("frmRecherche", Qt::NoModifier, Qt::Key_F2), QStringList());
}

TEST_F(AideDesFenetresTest, TheFrameHasItsCommand)
{
    Ecrire({"aideZelvane"});
    EXPECT_EQ(Presser<QMainWindow>("MDIForm1"), QStringList());
}

TEST_F(AideDesFenetresTest, EachWindowHasAPageThatIsInstalled)
{
    const QDir pages(QStringLiteral(ZELVANE_AIDE));
    QDirIterator formes(QStringLiteral(ZELVANE_SOURCES), {"*.ui"}, QDir::Files, QDirIterator::Subdirectories);
    int nombre = 0;
    for (; formes.hasNext(); ++nombre) {
        const QString page = AideDesFenetres::PageDe(QFileInfo(formes.next()).completeBaseName());
        for (const QString& langue : {QString(), QString("en/")})
            EXPECT_TRUE(pages.exists(langue + page)) << (langue + page).toStdString();
    }
    EXPECT_GT(nombre, 30);
}

} // namespace
