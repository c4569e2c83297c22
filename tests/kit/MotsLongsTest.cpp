#include "kit/MotsLongs.h"

#include "support/Impression.h"

#include <QApplication>
#include <QFontMetrics>
#include <QLabel>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class MotsLongsTest : public testing::Test
{
protected:
    QString Couper(const QString& texte, int largeur) const { return CouperMotsLongs(texte, m_mesures, largeur); }

    const QFontMetrics m_mesures{QApplication::font()};
    const QString m_long = u"Inventaire_complet_de_la_mediatheque_municipale.qrt"_s;
};

} // namespace

TEST_F(MotsLongsTest, TheWidestPartCountsWithoutTheBlanksBehindIt)
{
    EXPECT_EQ(LargeurDuPlusLongMot(u"un mot plus\nlong"_s, m_mesures), m_mesures.horizontalAdvance(u"long"_s));
    EXPECT_EQ(LargeurDuPlusLongMot(u"mot       \n"_s, m_mesures), m_mesures.horizontalAdvance(u"mot"_s));
    EXPECT_EQ(LargeurDuPlusLongMot(u""_s, m_mesures), 0);
}

TEST_F(MotsLongsTest, ATextWithoutLongWordsStaysAsItIs)
{
    const QString texte = u"Le fichier est deja ouvert :\n  /home/moi/musique/discotheque.qrt \n"_s;
    EXPECT_EQ(Couper(texte, LargeurDuPlusLongMot(texte, m_mesures)), texte);
    EXPECT_EQ(Couper(u""_s, 10), "");
}

TEST_F(MotsLongsTest, OnlyTheLongWordIsMadeToBreakAndKeepsItsCharacters)
{
    const QString coupe = Couper(u"Le fichier "_s + m_long + u" est deja ouvert"_s, 100);
    EXPECT_TRUE(coupe.startsWith(u"Le fichier I\u200Bn\u200Bv"_s));
    EXPECT_TRUE(coupe.endsWith(u"r\u200Bt est deja ouvert"_s));
    EXPECT_EQ(QString(coupe).remove(u'\u200B'), u"Le fichier "_s + m_long + u" est deja ouvert"_s);
}

TEST_F(MotsLongsTest, CharactersOfSeveralPartsStayWhole)
{
    const QString accents = u"e\u0301"_s.repeated(40), notes = u"𝄞"_s.repeated(40);
    EXPECT_TRUE(Couper(accents, 10).startsWith(u"e\u0301\u200Be\u0301\u200B"_s));
    EXPECT_TRUE(Couper(notes, 10).startsWith(u"𝄞\u200B𝄞\u200B"_s));
}

TEST_F(MotsLongsTest, ALabelBreaksThereAndShowsItAll)
{
    QLabel etiquette;
    etiquette.setWordWrap(true);
    etiquette.setText(Couper(m_long, 100));
    EXPECT_LE(etiquette.minimumSizeHint().width(), 100);
    EXPECT_GE(etiquette.heightForWidth(100), 3 * m_mesures.height()) << "three lines, about";
}
