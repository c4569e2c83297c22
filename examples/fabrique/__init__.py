"""The workshop that builds the sample catalogues. Standard library only; the same bytes at each run."""
