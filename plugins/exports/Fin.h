// How an export ended, and how it tells meanwhile how far it has come.
#pragma once

#include <cstdint>

enum class Fin {
    Faite,
    Abandonnee,     ///< the user has given it up
    TableChangee,   ///< the document was closed or changed meanwhile
    TropDeColonnes, ///< more than the format holds
    DisquePlein,
    Interdit, ///< no right to write there
    DossierAbsent,
    EcritureRefusee ///< for any other reason
};

class Progression
{
public:
    virtual ~Progression() = default;
    /// `fait` of `total` steps are done. False when the user has given up.
    virtual bool Avancer(int64_t fait, int64_t total) = 0;
};
