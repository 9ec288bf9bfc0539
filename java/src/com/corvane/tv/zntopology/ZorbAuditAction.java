package com.corvane.tv.zntopology;

/**
 * One thing that discovery did to an object.
 *
 * @param time when, in seconds UTC
 * @param type what was done
 * @param detailType to what of it
 * @param info what else was noted
 */
public record ZorbAuditAction(
    long time, ActionType type, ActionDetailType detailType, String info) {}
