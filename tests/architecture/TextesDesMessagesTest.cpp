#include "architecture/TextesDesMessages.h"

#include "architecture/Inclusions.h"
#include "extensions/langue/modLang.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

MessagesDesSources MessagesDe(const char* source)
{
    MessagesDesSources messages;
    LireMessages(QString::fromUtf8(source), messages);
    return messages;
}

/// What the sources of the program and of its plug-ins say.
MessagesDesSources MessagesDuProgramme()
{
    MessagesDesSources messages;
    for (const QString& racine : {QStringLiteral(ZELVANE_SOURCES), QStringLiteral(ZELVANE_PLUGINS)}) {
        for (const QString& nom : FichiersDe({racine, {}, {}})) {
            QFile fichier(racine + u'/' + nom);
            if (fichier.open(QIODevice::ReadOnly))
                LireMessages(QString::fromUtf8(fichier.readAll()), messages);
        }
    }
    return messages;
}

TEST(LireMessages, TakesTheLiteralBesideTheKey)
{
    const MessagesDesSources lus = MessagesDe(R"code(
        Dire(u"msg1"_s, u"un"_s);
        LangMsg(QStringLiteral("msg2"),
                QStringLiteral("de"
                               "ux")).texte;
        return f("msg3", u"l'une, "
                         u"\"trois\""_s, 1'000);
        if (c == u'"' || c == '\'')
            Demander(u"msg1"_s, u"encore"_s, x) || Demander(u"msg1"_s, u"un"_s, QString());
    )code");
    EXPECT_EQ(lus.textes, (std::map<QString, QStringList>{
                              {"msg1", {"un", "encore"}}, {"msg2", {"deux"}}, {"msg3", {R"(l'une, \"trois\")"}}}));
    EXPECT_TRUE(lus.clesSeules.isEmpty());
}

TEST(LireMessages, TakesThoseOfPlugins)
{
    const MessagesDesSources lus =
        MessagesDe(R"(zelvane::LangMsg(u"plugAOui"_s, u"&Oui"_s); f({"plugins", "a"}); f("plug", "b");)");
    EXPECT_EQ(lus.textes, (std::map<QString, QStringList>{{"plugAOui", {"&Oui"}}}));
}

TEST(LireMessages, PassesOverCommentsAndOtherLiterals)
{
    const MessagesDesSources lus = MessagesDe(R"code(
        // LangMsg(u"msg1"_s, u"un"_s) as in "msg2", "x"
        /* f("msg3",
             "trois") */
        f(u"http://a"_s, u"msg"_s, u"x"_s, u"amsg4"_s, u"x"_s);
        g(R"x("msg8", "x")x"); g(u"msg5"_s); if (cle == u"msg6"_s) return {u"msg7"_s};
    )code");
    EXPECT_TRUE(lus.textes.empty());
}

TEST(LireMessages, TellsAKeyWhoseTextIsNoLiteral)
{
    EXPECT_EQ(MessagesDe(R"(LangMsg(u"msg1"_s, texte); LangMsg(u"msg2"_s, u"deux"_s);)").clesSeules,
              QStringList("msg1"));
}

// The two below fail when a message cannot be read from the sources, or when a key is given a second text that
// TextesDuProgramme does not know: another place's question would then be shown once lang/default.ini is the language.

TEST(MessagesDuProgramme, EachKeyStandsBesideItsText)
{
    const MessagesDesSources lus = MessagesDuProgramme();
    EXPECT_GT(lus.textes.size(), 40U);
    EXPECT_EQ(lus.textes.at("msg62"), QStringList("Erreur d'enregistrement !"));
    EXPECT_EQ(lus.clesSeules.join(u' ').toStdString(), "");
}

TEST(MessagesDuProgramme, AKeyWithSeveralTextsIsKnownWithAllOfThem)
{
    for (const auto& [cle, textes] : MessagesDuProgramme().textes) {
        if (textes.size() < 2)
            continue;
        for (const QString& texte : textes)
            EXPECT_TRUE(TextesDuProgramme(cle).contains(texte)) << cle.toStdString() << ": " << texte.toStdString();
    }
}

TEST(TextesSansCle, AreSentencesWordsWithAccentsAndWhatIsShown)
{
    EXPECT_EQ(TextesSansCle(QStringLiteral(R"code(
        Dire(LangMsg(u"msg1"_s, u"Rien à dire"_s)); // "un commentaire quelconque"
        f(u"deux mots"_s); g("prêt"); g("deux\nlignes"); h("nom.qrt"); h("UnNom"); h("%1 %2");
        label->setText(u"Oui"_s); label->setText(nom + LangMsg(u"msg2"_s, u"Non"_s)); label->setObjectName("Label1");
        demande.titre = u"Ouvrir"_s; AfficherMsg(LangMsg(u"msg3"_s, u"Un texte"_s), MsgOk, u"Titre"_s);
    )code")),
              QStringList({"deux mots", "prêt", "deux lignes", "Oui", "Ouvrir", "Titre"}));
}

/// Texts that stand in the sources without a key, each for the reason above it.
const std::map<QString, QStringList>& TextesPermis()
{
    static const std::map<QString, QStringList> permis{
        // Tables of captions and hints, which have keys as texts of forms.
        {u"shell/Commandes.cpp"_s, {u"*"_s}},
        {u"shell/Form1Menus.cpp"_s, {u"*"_s}},
        {u"shell/Toolbars.cpp"_s, {u"*"_s}},
        // What is written into a file, or found in one, is the same in every language.
        {u"catalogue/texte/EcritureQrt.cpp"_s, {u"Zelvane v2.2 by Morvenal"_s}},
        {u"catalogue/texte/LectureQrt.cpp"_s, {u"Type=QRT FILE"_s, u"Prêté"_s}},
        {u"catalogue/texte/TexteQrt.cpp"_s, {u"*"_s}},
        {u"lending/Contacts.cpp"_s, {u"*"_s}},
        {u"output/EcrivainsDePages.cpp"_s, {u"*"_s}},
        {u"output/EcrivainsDeTextes.cpp"_s, {u"*"_s}},
        {u"output/OptionsDImpression.cpp"_s, {u"Zelvane v2.2 by Morvenal"_s, u"%titre% - %nb% %nomcat%"_s}},
        {u"platform/Association.cpp"_s, {u"*"_s}},
        {u"plugins/exports/ColonneOds.cpp"_s, {u"*"_s}},
        {u"plugins/exports/ContenuOds.cpp"_s, {u"*"_s}},
        {u"plugins/exports/EcrireJson.cpp"_s, {u"*"_s}},
        {u"plugins/exports/EcrireOds.cpp"_s, {u"*"_s}},
        {u"shell/Main.cpp"_s, {u"*"_s}},
        // Words for programs: layouts of dates, fonts, types of bytes, patterns of files, names of encodings.
        {u"base/Dates.cpp"_s, {u"dd MMMM yyyy"_s}},
        {u"base/Options.h"_s, {u"MS Sans Serif"_s}},
        {u"catalogue/texte/TypeFichier.cpp"_s, {u"trap"_s}},
        {u"output/Feuille.h"_s, {u"Arial Black"_s}},
        {u"plugins/csv/CodageCsv.cpp"_s, {u"*"_s}},
        {u"output/PoliceSurPapier.cpp"_s, {u"Arial Black"_s}},
        {u"output/modImprimerLV.cpp"_s, {u"PDF (*.pdf)|*.pdf"_s}},
        {u"shell/frmSecours.cpp"_s, {u"dd/MM/yyyy HH:mm"_s}},
        // Qt's words, which it translates.
        {u"shell/MenuDeSousFenetre.cpp"_s, {u"Stay on &Top"_s, u"QMdiSubWindow"_s}},
        // Words for developers.
        {u"catalogue/archive/ccZip.cpp"_s, {u"*"_s}},
        {u"catalogue/archive/ccZipExtraction.cpp"_s, {u"*"_s}},
        {u"catalogue/table/Collation.cpp"_s, {u"*"_s}},
        {u"platform/ComposantsDuSysteme.cpp"_s, {u"*"_s}},
        {u"shell/ItemsDeCommandes.cpp"_s, {u"*"_s}},
        // The name of the program and of its maker.
        {u"extensions/dialogues/About.cpp"_s, {u"Zelvane by Morvenal"_s}},
        {u"kit/frmMsg.cpp"_s, {u"Zelvane"_s}},
        {u"output/Statistiques.cpp"_s, {u"Zelvane v2.2 by Morvenal"_s}},
        {u"output/frmPrint.cpp"_s, {u"Zelvane v2.2 -"_s}},
        {u"shell/InstanceClass.h"_s, {u"Zelvane"_s}},
        // The table of keys with several texts, and what failed when no text can be looked up.
        {u"extensions/langue/modLang.cpp"_s, {u"*"_s}},
        // A name that no column has.
        {u"lending/mPret.cpp"_s, {u"toto"_s}},
        // In no language but this one. It is meant.
        {u"catalogue/documents/Sauver.cpp"_s, {u"Voulez-vous enregistrer les changement dans cette catégorie?"_s}},
        {u"columns/EditerColonnes.cpp"_s, {u"- pas dependant -"_s}},
        {u"columns/FusionnerColonnes.cpp"_s, {u" Le contenu des deux colonnes sera collé"_s}},
        {u"entries/frmPreEnregistre.cpp"_s, {u"...Aucune Info..."_s, u"Texte à ajouter à la preselection"_s}},
        {u"lending/frmContacts2.cpp"_s,
         {u"Ajouter un Contact"_s, u"Editer un Contact"_s, u"Veuillez taper un nom"_s,
          u"Le nom existe déjà dans la liste, veuillez taper un autre nom"_s}},
        {u"search/Comparaison.cpp"_s,
         {u" Il n'y a pas de comparaison à faire"_s, u"La première catégorie ne contient pas d'entrée."_s,
          u"La deuxième catégorie ne contient pas d'entrée."_s, uR"(Toutes les entrees du fichier \")"_s,
          uR"(\"  sont presentes dans le fichier \")"_s, u"Aucune difference ! les fichiers sont identiques"_s}},
        {u"search/frmCompare1.cpp"_s,
         {u"Il faut selectionner deux categories"_s, u"Il faut selectionner deux categories differentes"_s,
          u"Il n'y a rien à imprimer"_s}},
        {u"search/frmCompare2.cpp"_s, {u"Il faut selectionner deux Colonnes"_s}},
    };
    return permis;
}

const QString s_plugins = u"plugins/"_s;

/// The command line speaks French alone, and so has no keys.
bool EstEnLigneDeCommande(const QString& fichier)
{
    return fichier.startsWith("cli/"_L1);
}

TEST(TextesDuProgramme, NoneIsShownThatNoLanguageCouldHave)
{
    QStringList sansCle;
    std::map<QString, QStringList> inutiles = TextesPermis();
    QStringList fichiers = FichiersDe({QStringLiteral(ZELVANE_SOURCES), {}, {}});
    for (const QString& nom : FichiersDe({QStringLiteral(ZELVANE_PLUGINS), {}, {}}))
        fichiers.append(s_plugins + nom);
    for (const QString& nom : fichiers) {
        QFile fichier(nom.startsWith(s_plugins) ? QStringLiteral(ZELVANE_PLUGINS) + nom.mid(s_plugins.size() - 1)
                                                : QStringLiteral(ZELVANE_SOURCES) + u'/' + nom);
        if (EstEnLigneDeCommande(nom) || !fichier.open(QIODevice::ReadOnly))
            continue;
        const auto permis = TextesPermis().find(nom);
        const QStringList textesPermis = permis == TextesPermis().end() ? QStringList() : permis->second;
        for (const QString& texte : TextesSansCle(QString::fromUtf8(fichier.readAll()))) {
            const QString ligne = textesPermis.contains(u"*"_s) ? u"*"_s : texte;
            inutiles[nom].removeAll(ligne);
            if (!textesPermis.contains(ligne))
                sansCle.append(nom + u": "_s + texte);
        }
    }
    EXPECT_EQ(sansCle.join(u'\n').toStdString(), "");
    for (const auto& [nom, textes] : inutiles)
        EXPECT_EQ(textes, QStringList()) << "is no more in " << nom.toStdString();
}

} // namespace
