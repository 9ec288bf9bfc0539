package com.corvane.tv.zntopology;

/** Lacks its methods. */
public class ZorbTopoCache {}
