#include "kit/DialoguesDansLEcran.h"

#include "support/Impression.h"

#include <QDialog>
#include <QLabel>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

class DialoguesDansLEcranTest : public testing::Test
{
protected:
    QSize TailleMontree(const QSize& voulue)
    {
        m_dialogue.resize(voulue);
        m_dialogue.show();
        return m_dialogue.size();
    }

    const DialoguesDansLEcran m_dansLEcran;
    QDialog m_dialogue;
    const QSize m_ecran = m_dialogue.screen()->availableSize();
};

} // namespace

TEST_F(DialoguesDansLEcranTest, OneThatIsTooLargeLeavesRoomForItsBorder)
{
    const QSize taille = TailleMontree(2 * m_ecran);
    EXPECT_LT(taille.width(), m_ecran.width());
    EXPECT_LT(taille.height(), m_ecran.height());
    EXPECT_GT(taille.height(), m_ecran.height() * 3 / 4) << "it needs the room";
}

TEST_F(DialoguesDansLEcranTest, OneThatFitsKeepsItsSize)
{
    EXPECT_EQ(TailleMontree(QSize(400, 300)), QSize(400, 300));
}

TEST_F(DialoguesDansLEcranTest, OnlyTheSideThatIsTooLongIsShortened)
{
    EXPECT_EQ(TailleMontree(QSize(400, 2 * m_ecran.height())).width(), 400);
}

TEST_F(DialoguesDansLEcranTest, WhatItHoldsIsNotCutOff)
{
    m_dialogue.setMinimumHeight(m_ecran.height() + 100);
    EXPECT_EQ(TailleMontree(2 * m_ecran).height(), m_ecran.height() + 100);
}

TEST_F(DialoguesDansLEcranTest, TheUserMayMakeItLargerAfterwards)
{
    TailleMontree(QSize(400, 300));
    m_dialogue.resize(2 * m_ecran);
    EXPECT_EQ(m_dialogue.size(), 2 * m_ecran);
}

TEST_F(DialoguesDansLEcranTest, ATextThatBreaksIsReadWholeHoweverNarrowTheDialogBecomes)
{
    auto* texte = new QLabel(QStringLiteral("Cliquez sur un element de la liste. ").repeated(6), &m_dialogue);
    texte->setWordWrap(true);
    auto* disposition = new QVBoxLayout(&m_dialogue);
    disposition->addWidget(texte);
    TailleMontree(QSize(600, 20));
    for (const int largeur : {600, 200, 120, 300}) {
        m_dialogue.resize(largeur, 20);
        QCoreApplication::processEvents();
        EXPECT_EQ(m_dialogue.width(), largeur);
        EXPECT_GE(texte->height(), texte->heightForWidth(texte->width())) << largeur;
    }
    m_dialogue.resize(600, 20);
    m_dialogue.resize(600, 20);
    EXPECT_LT(m_dialogue.height(), 150) << "wide again, it may be flat again";
}
