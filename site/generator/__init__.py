"""Writes the pages of the site: the reference from what the tool says about itself, and the documents."""
