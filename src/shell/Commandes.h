// The commands of the program, one row each. Menus, tool bars, pop-up menus and keys name a row; the row knows what the
// command looks like, what it needs and what it does.
#pragma once

#include <QStringView>

#include <span>

class Form1;
class MDIForm1;

/// Where a command runs: the frame, and the document that it is about, which rows without a need do not look at.
struct LieuDeCommande
{
    MDIForm1& cadre;
    Form1* document;
};

/// What a command needs to do something. Each but the last one needs all that stands above it.
enum class Besoin {
    Rien,
    Document,
    Entrees,
    Selection,
    UneEntree, ///< that is selected alone
    DeuxDocuments,
};

/// What there is at a place: counted once, for all rows.
struct EtatDuLieu
{
    explicit EtatDuLieu(const LieuDeCommande& lieu);
    bool Comble(Besoin besoin) const;

    bool document;
    int entrees = 0;
    int choisies = 0;
    int documents;
};

struct RangDeCommande
{
    const char16_t* cle;           ///< its name: compared exactly
    const char16_t* caption = u""; ///< with its mnemonic; an item of a menu may have a caption of its own
    const char* image = "";        ///< a key of Icone
    const char* touches = "";      ///< shortcuts, parted by "; "
    Besoin besoin = Besoin::Rien;
    void (*faire)(const LieuDeCommande&) = nullptr; ///< null: it is to come, or there is nothing to do
    bool (*coche)(const LieuDeCommande&) = nullptr; ///< a state, on or off
    /// Whether the table acts on the shortcut: the menu shows it, and does not take it.
    bool toucheDeTable = false;
};

std::span<const RangDeCommande> TableDesCommandes();
/// Null when there is no such row.
const RangDeCommande* Rang(QStringView cle);

/// Whether the row would do something there.
bool EstPossible(const RangDeCommande& rang, const EtatDuLieu& etat);
/// Runs the command `cle` if it can do something there. `cle` is that of a row.
void Executer(QStringView cle, const LieuDeCommande& lieu);
