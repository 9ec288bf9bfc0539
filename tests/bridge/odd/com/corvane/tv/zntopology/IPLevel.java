package com.corvane.tv.zntopology;

/** Lacks the number. */
public class IPLevel {}
