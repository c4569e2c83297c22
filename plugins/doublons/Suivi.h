// How far a search has come: the search tells it, the dialog shows it and hears whether the user has given up.
#pragma once

class Suivi
{
public:
    virtual ~Suivi() = default;
    /// `fait` of `total` steps of the whole work are done. False when it is to be given up.
    virtual bool Avancer(double fait, double total) = 0;
};
