#include "platform/PressePapiersBureau.h"

#include "support/Impression.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PressePapiersBureau, WhatIsPutThereOtherProgramsFind)
{
    PressePapiersBureau bureau;
    bureau.Poser(u"[Zelvane]\r\n\tÉtoile ★"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"[Zelvane]\r\n\tÉtoile ★"_s);
    EXPECT_EQ(bureau.Texte(), u"[Zelvane]\r\n\tÉtoile ★"_s);
}

TEST(PressePapiersBureau, GivesWhatAnotherProgramPutThere)
{
    QGuiApplication::clipboard()->setText(u"de l'autre"_s);
    EXPECT_EQ(PressePapiersBureau().Texte(), u"de l'autre"_s);
}

TEST(PressePapiersBureau, OnceClearedHoldsNoText)
{
    PressePapiersBureau bureau;
    bureau.Poser(u"texte"_s);
    bureau.Vider();
    EXPECT_EQ(bureau.Texte(), std::nullopt);
}

TEST(PressePapiersBureau, APictureIsNoText)
{
    auto* image = new QMimeData;
    image->setData(u"image/png"_s, QByteArrayLiteral("x"));
    QGuiApplication::clipboard()->setMimeData(image);
    EXPECT_EQ(PressePapiersBureau().Texte(), std::nullopt);
}
