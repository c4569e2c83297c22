// The people to whom things are lent: the section [Preter] of the settings file, which all categories share.
//
// A record is a name, "|" and an e-mail. The key "count" tells how many there are, "Nom1", "Nom2" … hold them. Records
// behind the count are ignored: a list that became shorter leaves its last ones there.
#pragma once

#include <QString>

#include <functional>
#include <vector>

struct Contact
{
    QString nom;
    QString email; ///< may be empty

    bool operator==(const Contact&) const = default;
};

/// What was read of the list.
struct ContactsLus
{
    std::vector<Contact> contacts; ///< in the order of the file
    qint64 compte = 0;             ///< the number of records that the file tells, however many there are
    /// Records that are not among `contacts` and should be: they have no bar or are too long to be read whole, are not
    /// there at all, or the count that would tell of them is missing or no number.
    qint64 manquants = 0;
    /// Something stands in the file that is not in `contacts`: a list that is written in its place takes it away.
    bool aPerdre = false;
    bool lisible = true; ///< the file could be read

    bool operator==(const ContactsLus&) const = default;
};

/// Reads the list; a missing file is an empty one.
ContactsLus LireContacts(const QString& fichier);

/// Puts a list in the place of the one there is, all or nothing. The read-only attribute of the file goes. False when
/// the file cannot be written.
bool EcrireContacts(const QString& fichier, const std::vector<Contact>& contacts);

enum class IssueInscription {
    Connu, ///< the list has that name with that e-mail
    Inscrit,
    Laisse,    ///< a record that could not be read stands in the place, and is not to be overwritten
    Impossible ///< the file cannot be written
};

/// Adds somebody to whom something is lent. The name with another e-mail is somebody else. The read-only attribute of
/// the file goes in any case. `accepterPerte` is asked before a record is overwritten that the count hides.
IssueInscription InscrireContact(const QString& fichier, const Contact& contact,
                                 const std::function<bool()>& accepterPerte);

/// Makes the settings file, with an empty list, where there is none. Nothing is told when that fails: it is a list to
/// choose from that is missing then.
void CreerFichierDesContacts(const QString& fichier);
