// Nothing but the headers that all tests share, which are compiled once here.
