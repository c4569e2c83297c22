// What the program hands the library, for the plug-in's files that are built again in a test.
#pragma once

/// While it lives, texts come from the language in force; without it they are those of the sources.
class RegistreDeTest
{
public:
    RegistreDeTest();
    ~RegistreDeTest();
    RegistreDeTest(const RegistreDeTest&) = delete;
    RegistreDeTest& operator=(const RegistreDeTest&) = delete;
};
