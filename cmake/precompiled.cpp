// Nothing but the headers that are parsed in front of it.
