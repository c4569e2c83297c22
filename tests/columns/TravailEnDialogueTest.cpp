#include "columns/TravailEnDialogue.h"

#include "support/FileDeReponses.h"
#include "support/Impression.h"

#include <QProgressBar>
#include <QWidget>

#include <gtest/gtest.h>

#include <new>

TEST(TravailEnDialogue, EventsRunMeanwhile)
{
    QObject ici;
    AvancementDansBarre avancement(nullptr, std::chrono::milliseconds(0));
    bool vu = false;
    QMetaObject::invokeMethod(
        &ici, [&vu] { vu = true; }, Qt::QueuedConnection);
    avancement.Avancer(1, 3000);
    EXPECT_FALSE(vu) << "not at every entry";
    avancement.Avancer(1024, 3000);
    EXPECT_TRUE(vu);
}

TEST(TravailEnDialogue, WhatOtherProgramsWantWaitsAndTheBarIsOnShow)
{
    QWidget fenetre;
    QProgressBar barre(&fenetre);
    barre.hide();
    fenetre.show();
    TravailEnDialogue travail;
    EXPECT_FALSE(travail.EnCours());
    EXPECT_TRUE(travail.Faire(&barre, 5000, [&](Avancement& avancement) {
        EXPECT_TRUE(travail.EnCours());
        EXPECT_TRUE(Retenue::EnCours());
        EXPECT_TRUE(barre.isVisible());
        EXPECT_EQ(barre.minimum(), 0);
        EXPECT_EQ(barre.maximum(), 5000);
        EXPECT_EQ(barre.value(), 0);
        avancement.Avancer(2048, 5000);
        EXPECT_EQ(barre.value(), 2048);
    }));
    EXPECT_FALSE(travail.EnCours());
    EXPECT_FALSE(Retenue::EnCours());
    EXPECT_FALSE(barre.isVisible());
}

TEST(TravailEnDialogue, WorkThatFindsNoMemoryIsTold)
{
    FileDeReponses reponses;
    TravailEnDialogue travail;
    EXPECT_FALSE(travail.Faire(nullptr, 0, [](Avancement&) { throw std::bad_alloc(); }));
    EXPECT_EQ(reponses.Cles(), QStringList("msgMemoire"));
    EXPECT_FALSE(travail.EnCours());
}
